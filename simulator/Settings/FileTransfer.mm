#import "Settings/FileTransfer.hpp"

#import <UIKit/SharedItem.h>
#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIDocumentPickerViewController+Sim.h>
#import <UIKit/UIImagePickerController+Sim.h>

#import "Settings/ElementId.hpp"

#include <optional>
#include <string>
#include <utility>

namespace sim {
namespace {

NSString *textOf(const Json &request, const char *name) {
  const auto found = request.find(name);
  return found == request.end() ? nil : stringFrom(*found);
}

int statusOf(NSError *error) {
  switch ([error code]) {
    case NSFileWriteOutOfSpaceError: return 507;
    case NSFileWriteUnknownError: return 500;
    default: return 422;
  }
}

EventResult failed(NSError *error) { return {statusOf(error), utf8([error localizedDescription])}; }

}  // namespace

EventResult addUploadedPhoto(const Json &request, NSString **path) {
  NSString *file = textOf(request, "file");
  if (!file) return {400, "There is no file."};
  NSError *error = nil;
  *path = [UIImagePickerController sim_addPhotoAtPath:file named:textOf(request, "name") error:&error];
  return *path ? EventResult{} : failed(error);
}

EventResult pickUploadedFile(const Json &request, UINavigationController *navigation) {
  NSString *file = textOf(request, "file");
  NSString *name = textOf(request, "name");
  if (!file || !name) return {400, "There is no file, or it has no name."};
  UIViewController *presented = presentedOver(navigation);
  if (![presented isKindOfClass:[UIDocumentPickerViewController class]]) {
    return {422, "Nothing on the screen asks for a file."};
  }
  NSError *error = nil;
  UIDocumentPickerViewController *picker = (UIDocumentPickerViewController *)presented;
  return [picker sim_pickFileOfComputer:file named:name error:&error] ? EventResult{} : failed(error);
}

EventResult readSharedItem(std::string_view text, UINavigationController *navigation, PageNumbers &numbers,
                           NSData **content) {
  const EventResult unknown{404, "Nothing on the screen shares this."};
  UIViewController *presented = presentedOver(navigation);
  const auto place = ElementId::parse(text);
  if (!place || place->kind != ElementKind::kSheetItem || ![presented isKindOfClass:[UIActivityViewController class]] ||
      numbers.of(presented) != place->owner) {
    return unknown;
  }
  NSArray *items = [(UIActivityViewController *)presented sim_activityItems];
  id item = place->index < [items count] ? [items objectAtIndex:place->index] : nil;
  if (!fileNameOfSharedItem(item)) return unknown;
  NSError *error = nil;
  *content = contentOfSharedItem(item, &error);
  return *content ? EventResult{} : failed(error);
}

}  // namespace sim
