#import "Settings/FileTransfer.hpp"

#import <Foundation/SIMDevice.h>

#import "Settings/ElementId.hpp"
#import "Settings/PhotoUpload.hpp"
#import "Settings/presented/Presented.hpp"

namespace sim {
namespace {

NSString *textOf(const Json &request, const char *name) {
  const auto found = request.find(name);
  return found == request.end() ? nil : stringFrom(*found);
}

NSString *deviceFile(const Json &request) {
  NSString *path = textOf(request, "file");
  return path ? SIMDevicePath(path) : nil;
}

int statusOf(NSError *error) {
  switch ([error code]) {
    case NSFileWriteOutOfSpaceError: return 507;
    case NSFileWriteUnknownError: return 500;
    default: return 422;
  }
}

}  // namespace

EventResult failed(NSError *error) { return {statusOf(error), utf8([error localizedDescription])}; }

EventResult notShared() { return {404, "Nothing on the screen shares this."}; }

EventResult addUploadedPhoto(const Json &request, NSString **path) {
  NSString *file = deviceFile(request);
  return file ? uploadPhoto(file, textOf(request, "name"), path) : malformed("There is no file.");
}

EventResult pickUploadedFile(const Json &request, UINavigationController *navigation) {
  NSString *file = deviceFile(request);
  NSString *name = textOf(request, "name");
  if (!file || !name) return malformed("There is no file, or it has no name.");
  UIViewController *presented = presentedOver(navigation);
  const PresentedAdapter *adapter = presentedAdapter(presented);
  if (!adapter || !adapter->pickFile) return refused("Nothing on the screen asks for a file.");
  return adapter->pickFile(presented, file, name);
}

EventResult readSharedItem(std::string_view text, UINavigationController *navigation, PageNumbers &numbers,
                           NSData **content) {
  UIViewController *presented = presentedOver(navigation);
  const PresentedAdapter *adapter = presentedAdapter(presented);
  const auto place = ElementId::parse(text);
  if (!place || !adapter || !adapter->read || numbers.of(presented) != place->owner) return notShared();
  return adapter->read(presented, *place, content);
}

}  // namespace sim
