#import <UIKit/SharedItem.h>
#import <UIKit/UIActivityViewController+Sim.h>

#import "Settings/FileTransfer.h"
#import "Settings/ImageStore.h"
#import "Settings/presented/PresentedAdapter.h"

namespace sim {
namespace {

void writeItem(JsonText &out, id item, NSArray *activities, const std::string &identifier, const ImageStore &images) {
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
    out.string("/shared/" + images.place() + identifier);
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

void describe(JsonText &out, UIViewController *presented, std::uint32_t number, ImageStore &images) {
  UIActivityViewController *sheet = (UIActivityViewController *)presented;
  NSArray *activities = [sheet sim_activityTypes];
  std::uint32_t index = 0;
  out.name("kind").string("share");
  writeText(out.name("title"), @"Share");
  out.name("items").beginArray();
  for (id item in [sheet sim_activityItems]) {
    writeItem(out, item, activities, ElementId{ElementKind::kSheetItem, number, 0, index++}.text(), images);
  }
  out.endArray();
}

/// nil when `id` names none.
id itemNamed(const ElementId &place, UIViewController *presented) {
  NSArray *items = [(UIActivityViewController *)presented sim_activityItems];
  return place.kind == ElementKind::kSheetItem && place.index < [items count] ? [items objectAtIndex:place.index] : nil;
}

EventResult tap(UIViewController *presented, const ElementId &place, std::string_view part) {
  UIActivityViewController *sheet = (UIActivityViewController *)presented;
  id item = itemNamed(place, sheet);
  if (!item) return unknown();
  if (part == "copy") return done([sheet sim_copyItemAtIndex:place.index], "This cannot be copied.");
  if (part != "save") return refused("A shared item is copied or saved: the \"part\" says which.");
  if (!fileNameOfSharedItem(item)) return refused("This is no file.");
  return done([sheet sim_finishWithActivityType:SIMActivityTypeSaveToFiles], "This cannot be saved.");
}

EventResult read(UIViewController *presented, const ElementId &place, NSData **content) {
  id item = itemNamed(place, presented);
  if (!fileNameOfSharedItem(item)) return notShared();
  NSError *error = nil;
  *content = contentOfSharedItem(item, &error);
  return *content ? EventResult{} : failed(error);
}

EventResult dismiss(UIViewController *presented) {
  [(UIActivityViewController *)presented sim_finishWithActivityType:nil];
  return {};
}

}  // namespace

extern const PresentedAdapter kShareSheet{.kind = [] { return [UIActivityViewController class]; },
                                          .describe = describe,
                                          .tap = tap,
                                          .read = read,
                                          .dismiss = dismiss};

}  // namespace sim
