#import "Settings/PhotoUpload.h"

#import <CoreGraphics/CGImage+Sim.h>
#import <UIKit/UIImagePickerController+Sim.h>

#import "Settings/JsonValues.h"
#import "Settings/PhotoLibrary.hpp"

#include <cerrno>
#include <cstring>
#include <optional>

namespace sim {
namespace {

/// How a sentence calls a file of that name, or of none.
std::string called(NSString *name) { return name ? "“" + utf8(name) + "”" : "The file"; }

/// nullptr when it cannot be read or is too large.
SharedBytes bytesOf(NSString *file) {
  return [UIImagePickerController sim_isTooLarge:file] ? nullptr : sharedBytes([NSData dataWithContentsOfFile:file]);
}

}  // namespace

EventResult uploadPhoto(NSString *file, NSString *name, NSString **path) {
  if (![UIImagePickerController isSourceTypeAvailable:UIImagePickerControllerSourceTypePhotoLibrary]) {
    return refused("The device has no photo library: its folder /var/mobile/Media/DCIM is missing.");
  }
  const SharedBytes bytes = bytesOf(file);
  const auto extension = bytes ? photoExtension(bytes) : std::nullopt;
  if (!extension) return refused(called(name) + " is damaged, too large, or not a picture.");
  const auto added = addPhoto([[UIImagePickerController sim_photoFolder] fileSystemRepresentation],
                              [file fileSystemRepresentation], *extension);
  if (const std::string *place = std::get_if<std::string>(&added)) {
    *path = [NSString stringWithUTF8String:place->c_str()];
    return {};
  }
  const int number = std::get<int>(added);
  const bool isFull = number == ENOSPC || number == EDQUOT;
  return {isFull ? Outcome::diskFull : Outcome::failed,
          called(name) + " could not be put into the photo library: " + std::strerror(number) + "."};
}

}  // namespace sim
