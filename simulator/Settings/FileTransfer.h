// Files between the computer and the device: photos that come in, a document that is picked, things that are shared.
#pragma once

#import <UIKit/UIKit.h>

#include <string_view>

#include "Settings/EventResult.hpp"
#import "Settings/ScreenDescription.h"

namespace sim {

// Main thread.

/// Moves the picture into the photo library, and stores its path there, autoreleased, at `path`.
EventResult addUploadedPhoto(const wire::AddPhoto &call, NSString **path);

/// Picks the file in the document picker that `navigation` shows.
EventResult pickUploadedFile(const wire::PickFile &call, UINavigationController *navigation);

/// Stores what the shared item `id` of the share sheet that `navigation` shows is saved as, autoreleased, at `content`.
EventResult readSharedItem(std::string_view id, UINavigationController *navigation, PageNumbers &numbers,
                           NSData **content);

/// What the framework's `error` with a file comes to: its sentence, and whether the disk or the file is at fault.
EventResult failed(NSError *error);

/// For an id that names nothing that is shared as a file.
EventResult notShared();

}  // namespace sim
