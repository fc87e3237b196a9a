#import "Settings/SheetDescription.hpp"

#import <UIKit/SharedItem.h>
#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIDocumentPickerViewController+Sim.h>
#import <UIKit/UIImagePickerController+Sim.h>
#import <UIKit/UIKit.h>

#import "Settings/ElementId.hpp"
#import "Settings/ImageStore.hpp"
#import "Settings/JsonValues.hpp"
#import "Settings/ScreenDescription.hpp"
#import "Settings/ViewDescription.hpp"

namespace sim {
namespace {

const char *styleName(UIAlertActionStyle style) {
  switch (style) {
    case UIAlertActionStyleCancel: return "cancel";
    case UIAlertActionStyleDestructive: return "destructive";
    default: return "default";
  }
}

void writeFields(JsonText &out, UIAlertController *alert, std::uint32_t number) {
  out.beginArray();
  std::uint32_t index = 0;
  for (UITextField *field in [alert textFields]) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kAlertField, number, 0, 0, index++}.text());
    writeText(out.name("placeholder"), [field placeholder]);
    writeText(out, "value", [field text] ?: @"");
    out.name("secure").flag([field isSecureTextEntry]);
    out.name("clearButton").flag([field clearButtonMode] != UITextFieldViewModeNever);
    out.endObject();
  }
  out.endArray();
}

void writeActions(JsonText &out, UIAlertController *alert, std::uint32_t number) {
  out.beginArray();
  std::uint32_t index = 0;
  for (UIAlertAction *action in [alert actions]) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kAlertAction, number, 0, 0, index++}.text());
    writeText(out.name("title"), [action title]);
    out.name("style").string(styleName([action style]));
    out.name("enabled").flag([action isEnabled]);
    out.name("preferred").flag(action == [alert preferredAction]);
    out.endObject();
  }
  out.endArray();
}

/// Where on the screen a popover points to, in points; null for what has no such place.
void writeAnchor(JsonText &out, UIViewController *presented) {
  UIPopoverPresentationController *popover = [presented popoverPresentationController];
  UIView *source = [popover sourceView];
  if (![source window]) return out.null();
  const CGRect rect = CGRectIsNull([popover sourceRect]) ? [source bounds] : [popover sourceRect];
  writeFrame(out, [source convertRect:rect toView:nil]);
}

/// What a picker or another page offers.
struct Offer {
  const char *kind;
  NSString *title;                // Not owned, like the paths.
  NSArray *paths;                 ///< What a pick names.
  NSString *pictureFolder = nil;  ///< Where the paths lie on this computer when they are pictures.
};

Offer offerOf(UIViewController *presented) {
  if ([presented isKindOfClass:[UIImagePickerController class]]) {
    return {"photos", @"Photos", [(UIImagePickerController *)presented sim_photoPaths],
            [UIImagePickerController sim_photoFolder]};
  }
  if ([presented isKindOfClass:[UIDocumentPickerViewController class]]) {
    return {"documents", @"Files", [(UIDocumentPickerViewController *)presented sim_filePaths]};
  }
  return { "page", [presented title] ?: NSStringFromClass([presented class]), @[] };
}

void writeItems(JsonText &out, const Offer &offer, std::uint32_t number, ImageStore &images) {
  out.beginArray();
  std::uint32_t index = 0;
  for (NSString *path in offer.paths) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kSheetItem, number, 0, 0, index++}.text());
    writeText(out.name("title"), [path lastPathComponent]);
    writeText(out.name("path"), path);
    out.name("image");
    if (offer.pictureFolder) {
      images.writeThumbnail(out, [offer.pictureFolder stringByAppendingPathComponent:path]);
    } else {
      out.null();
    }
    out.endObject();
  }
  out.endArray();
}

void writeSharedItem(JsonText &out, id item, NSArray *activities, const std::string &identifier) {
  NSString *fileName = fileNameOfSharedItem(item);
  const bool copies = [activities containsObject:UIActivityTypeCopyToPasteboard] && canCopySharedItem(item);
  const bool saves = [activities containsObject:SIMActivityTypeSaveToFiles] && fileName;
  out.beginObject();
  out.name("id").string(identifier);
  writeText(out.name("title"), titleOfSharedItem(item));
  writeText(out.name("path"), nil);
  out.name("image").null();
  // What a file holds may be large; "copy" reads it when it comes to that.
  writeText(out, "text", copies && !fileName ? pasteboardTextOfSharedItem(item) : nil);
  writeText(out.name("fileName"), saves ? fileName : nil);
  out.name("url");
  if (saves) {
    out.string("/shared/" + identifier);
  } else {
    out.null();
  }
  out.name("activities");
  out.beginArray();
  if (copies) out.string("copy");
  if (saves) out.string("save");
  out.endArray();
  out.endObject();
}

void writeSharedItems(JsonText &out, UIActivityViewController *sheet, std::uint32_t number) {
  NSArray *activities = [sheet sim_activityTypes];
  std::uint32_t index = 0;
  out.beginArray();
  for (id item in [sheet sim_activityItems]) {
    writeSharedItem(out, item, activities, ElementId{ElementKind::kSheetItem, number, 0, 0, index++}.text());
  }
  out.endArray();
}

/// The kind, the title and the items.
void writeShareSheet(JsonText &out, UIActivityViewController *sheet, std::uint32_t number) {
  out.name("kind").string("share");
  writeText(out.name("title"), @"Share");
  writeSharedItems(out.name("items"), sheet, number);
}

/// The kind, the title and the colour.
void writeColorPicker(JsonText &out, UIColorPickerViewController *picker, std::uint32_t number) {
  out.name("kind").string("color");
  writeText(out.name("title"), [picker title] ?: @"Colors");
  out.name("items").beginArray();
  out.endArray();
  out.name("color").beginObject();
  out.name("id").string(ElementId{ElementKind::kSheetColor, number, 0, 0, 0}.text());
  writeColor(out.name("value"), [[picker selectedColor] resolvedColorWithTraitCollection:[picker traitCollection]]);
  out.name("supportsAlpha").flag([picker supportsAlpha]);
  out.endObject();
}

void writeOffer(JsonText &out, const Offer &offer, std::uint32_t number, ImageStore &images) {
  out.name("kind").string(offer.kind);
  writeText(out.name("title"), offer.title);
  writeItems(out.name("items"), offer, number, images);
}

}  // namespace

void writeAlert(JsonText &out, UIViewController *presented, PageNumbers &numbers) {
  if (![presented isKindOfClass:[UIAlertController class]]) return out.null();
  UIAlertController *alert = (UIAlertController *)presented;
  const std::uint32_t number = numbers.of(alert);
  out.beginObject();
  writeText(out.name("title"), [alert title]);
  writeText(out, "message", [alert message]);
  out.name("style").string([alert preferredStyle] == UIAlertControllerStyleAlert ? "alert" : "actionSheet");
  writeAnchor(out.name("anchor"), alert);
  writeFields(out.name("fields"), alert, number);
  writeActions(out.name("actions"), alert, number);
  out.endObject();
}

void writeSheet(JsonText &out, UIViewController *presented, PageNumbers &numbers, ImageStore &images) {
  if (!presented || [presented isKindOfClass:[UIAlertController class]]) return out.null();
  out.beginObject();
  writeAnchor(out.name("anchor"), presented);
  if ([presented isKindOfClass:[UIActivityViewController class]]) {
    writeShareSheet(out, (UIActivityViewController *)presented, numbers.of(presented));
  } else if ([presented isKindOfClass:[UIColorPickerViewController class]]) {
    writeColorPicker(out, (UIColorPickerViewController *)presented, numbers.of(presented));
  } else {
    writeOffer(out, offerOf(presented), numbers.of(presented), images);
  }
  out.endObject();
}

}  // namespace sim
