#import <UIKit/UIImagePickerController+Sim.h>

#import "Settings/FileTransfer.h"
#import "Settings/presented/PathItems.h"
#import "Settings/presented/PresentedAdapter.h"

namespace sim {
namespace {

void describe(JsonText &out, UIViewController *presented, std::uint32_t number, ImageStore &images) {
  out.name("kind").string("photos");
  writeText(out.name("title"), @"Photos");
  writePathItems(out.name("items"), [(UIImagePickerController *)presented sim_photoPaths], number,
                 [UIImagePickerController sim_photoFolder], images);
}

EventResult pick(UIViewController *presented, NSString *path) {
  NSError *error = nil;
  const bool isPicked = [(UIImagePickerController *)presented sim_pickPhotoAtPath:path error:&error];
  return isPicked ? EventResult{} : failed(error);
}

EventResult tap(UIViewController *presented, const ElementId &id, std::string_view) {
  NSString *path = pathNamed(id, [(UIImagePickerController *)presented sim_photoPaths]);
  return path ? pick(presented, path) : unknown();
}

EventResult dismiss(UIViewController *presented) {
  [(UIImagePickerController *)presented sim_cancel];
  return {};
}

}  // namespace

extern const PresentedAdapter kPhotoPicker{.kind = [] { return [UIImagePickerController class]; },
                                           .describe = describe,
                                           .tap = tap,
                                           .pick = pick,
                                           .dismiss = dismiss};

}  // namespace sim
