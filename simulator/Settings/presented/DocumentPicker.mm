#import <UIKit/UIDocumentPickerViewController+Sim.h>

#import "Settings/FileTransfer.h"
#import "Settings/presented/PathItems.h"
#import "Settings/presented/PresentedAdapter.h"

namespace sim {
namespace {

void describe(JsonText &out, UIViewController *presented, std::uint32_t number, ImageStore &images) {
  out.name("kind").string("documents");
  writeText(out.name("title"), @"Files");
  writePathItems(out.name("items"), [(UIDocumentPickerViewController *)presented sim_filePaths], number, nil, images);
}

EventResult pick(UIViewController *presented, NSString *path) {
  NSError *error = nil;
  const bool isPicked = [(UIDocumentPickerViewController *)presented sim_pickFileAtPath:path error:&error];
  return isPicked ? EventResult{} : failed(error);
}

EventResult tap(UIViewController *presented, const ElementId &id, std::string_view) {
  NSString *path = pathNamed(id, [(UIDocumentPickerViewController *)presented sim_filePaths]);
  return path ? pick(presented, path) : unknown();
}

EventResult pickFile(UIViewController *presented, NSString *file, NSString *name) {
  UIDocumentPickerViewController *picker = (UIDocumentPickerViewController *)presented;
  NSError *error = nil;
  return [picker sim_pickProvidedFile:file named:name error:&error] ? EventResult{} : failed(error);
}

EventResult dismiss(UIViewController *presented) {
  [(UIDocumentPickerViewController *)presented sim_cancel];
  return {};
}

}  // namespace

extern const PresentedAdapter kDocumentPicker{.kind = [] { return [UIDocumentPickerViewController class]; },
                                              .describe = describe,
                                              .tap = tap,
                                              .pick = pick,
                                              .pickFile = pickFile,
                                              .dismiss = dismiss};

}  // namespace sim
