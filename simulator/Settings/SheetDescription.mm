#import "Settings/SheetDescription.hpp"

#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIDocumentPickerViewController+Sim.h>
#import <UIKit/UIImagePickerController+Sim.h>
#import <UIKit/UIKit.h>

#import "Settings/ElementId.hpp"
#import "Settings/JsonValues.hpp"
#import "Settings/ScreenDescription.hpp"

namespace sim {
namespace {

const char *styleName(UIAlertActionStyle style) {
  switch (style) {
    case UIAlertActionStyleCancel:
      return "cancel";
    case UIAlertActionStyleDestructive:
      return "destructive";
    default:
      return "default";
  }
}

void writeFields(JsonText &out, UIAlertController *alert, std::uint32_t number) {
  out.beginArray();
  std::uint32_t index = 0;
  for (UITextField *field in [alert textFields]) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kAlertField, number, 0, 0, index++}.text());
    writeText(out.name("placeholder"), [field placeholder]);
    writeText(out.name("value"), [field text] ?: @"");
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

/// What a sheet offers.
struct Offer {
  const char *kind;
  NSString *title;  // Not owned, like the names.
  NSArray *names;
  bool pathed;  ///< The names are paths that a pick names.
};

Offer offerOf(UIViewController *presented) {
  if ([presented isKindOfClass:[UIImagePickerController class]]) {
    return {"photos", @"Photos", [(UIImagePickerController *)presented sim_photoPaths], true};
  }
  if ([presented isKindOfClass:[UIDocumentPickerViewController class]]) {
    return {"documents", @"Files", [(UIDocumentPickerViewController *)presented sim_filePaths], true};
  }
  if ([presented isKindOfClass:[UIActivityViewController class]]) {
    return {"share", @"Share", [(UIActivityViewController *)presented sim_itemTitles], false};
  }
  return {"page", [presented title] ?: NSStringFromClass([presented class]), @[], false};
}

void writeItems(JsonText &out, const Offer &offer, std::uint32_t number) {
  out.beginArray();
  std::uint32_t index = 0;
  for (NSString *name in offer.names) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kSheetItem, number, 0, 0, index++}.text());
    writeText(out.name("title"), offer.pathed ? [name lastPathComponent] : name);
    writeText(out.name("path"), offer.pathed ? name : nil);
    out.name("image").null();
    out.endObject();
  }
  out.endArray();
}

}  // namespace

void writeAlert(JsonText &out, UIViewController *presented, PageNumbers &numbers) {
  if (![presented isKindOfClass:[UIAlertController class]]) return out.null();
  UIAlertController *alert = (UIAlertController *)presented;
  const std::uint32_t number = numbers.of(alert);
  out.beginObject();
  writeText(out.name("title"), [alert title]);
  writeText(out.name("message"), [alert message]);
  out.name("style").string([alert preferredStyle] == UIAlertControllerStyleAlert ? "alert" : "actionSheet");
  writeFields(out.name("fields"), alert, number);
  writeActions(out.name("actions"), alert, number);
  out.endObject();
}

void writeSheet(JsonText &out, UIViewController *presented, PageNumbers &numbers) {
  if (!presented || [presented isKindOfClass:[UIAlertController class]]) return out.null();
  const Offer offer = offerOf(presented);
  out.beginObject();
  out.name("kind").string(offer.kind);
  writeText(out.name("title"), offer.title);
  writeItems(out.name("items"), offer, numbers.of(presented));
  out.endObject();
}

}  // namespace sim
