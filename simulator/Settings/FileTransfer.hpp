// Files between the computer and the device: photos that come in, a document that is picked, things that are shared.
#pragma once

#import <UIKit/UIKit.h>

#include <string_view>

#include "Settings/EventResult.hpp"
#include "Settings/JsonValues.hpp"
#include "Settings/ScreenDescription.hpp"

namespace sim {

// A result of 200 has done it. One of the 400s or 500s has changed nothing and says why, in a sentence for people; 507
// that the disk is full. Main thread.

/// Moves the picture at the path "file" of `request`, which people call "name", into the photo library, and stores its
/// path there, autoreleased, at `path`.
EventResult addUploadedPhoto(const Json& request, NSString** path);

/// Picks the file at the path "file" of `request` under the name "name" in the document picker that `navigation` shows.
EventResult pickUploadedFile(const Json& request, UINavigationController* navigation);

/// Stores what the shared item `id` of the share sheet that `navigation` shows is saved as, autoreleased, at `content`.
EventResult readSharedItem(std::string_view id, UINavigationController* navigation, PageNumbers& numbers,
                           NSData** content);

/// What the framework's `error` with a file comes to: its sentence, and whether the disk or the file is at fault.
EventResult failed(NSError* error);

/// For an id that names nothing that is shared as a file.
EventResult notShared();

}  // namespace sim
