// Pictures of the computer, put into the photo library of the device.
#pragma once

#import <Foundation/Foundation.h>

#include "Settings/EventResult.hpp"

namespace sim {

/// Moves the picture at `file`, a path of this computer, into the device's photo library, as a camera or a transfer
/// does, and stores its path below the library, autoreleased, at `path`.
///
/// Refused when there is no library, or the file is no picture that can be decoded or too large; `diskFull` or `failed`
/// when the disk is full or at fault otherwise. The sentence calls the file by `name` unless that is nil. Main thread.
EventResult uploadPhoto(NSString *file, NSString *name, NSString **path);

}  // namespace sim
