#import "Settings/FileTransfer.h"

#import <Foundation/SIMDevice.h>

#import "Settings/ElementId.hpp"
#import "Settings/PhotoUpload.h"
#import "Settings/presented/Presented.h"

namespace sim {
namespace {

Outcome outcomeOf(NSError *error) {
  switch ([error code]) {
    case NSFileWriteOutOfSpaceError: return Outcome::diskFull;
    case NSFileWriteUnknownError: return Outcome::failed;
    default: return Outcome::refused;
  }
}

}  // namespace

EventResult failed(NSError *error) { return {outcomeOf(error), utf8([error localizedDescription])}; }

EventResult notShared() { return {Outcome::unknown, "Nothing on the screen shares this."}; }

EventResult addUploadedPhoto(const wire::AddPhoto &call, NSString **path) {
  return uploadPhoto(SIMDevicePath(stringFrom(call.file)), call.name ? stringFrom(*call.name) : nil, path);
}

EventResult pickUploadedFile(const wire::PickFile &call, UINavigationController *navigation) {
  UIViewController *presented = presentedOver(navigation);
  const PresentedAdapter *adapter = presentedAdapter(presented);
  if (!adapter || !adapter->pickFile) return refused("Nothing on the screen asks for a file.");
  return adapter->pickFile(presented, SIMDevicePath(stringFrom(call.file)), stringFrom(call.name));
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
