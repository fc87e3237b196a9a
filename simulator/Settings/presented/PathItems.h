// What pickers of files share: items that are paths on the device.
#pragma once

#import <UIKit/UIKit.h>

#include <cstdint>

#include "Settings/ElementId.hpp"
#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes an item for each of `paths`. `pictureFolder` is where they lie on this computer when they are pictures; nil
/// for others, which are shown without one.
void writePathItems(JsonText &out, NSArray *paths, std::uint32_t number, NSString *pictureFolder, ImageStore &images);

/// The one of `paths` that `place` names; nil for none.
NSString *pathNamed(const ElementId &place, NSArray *paths);

}  // namespace sim
