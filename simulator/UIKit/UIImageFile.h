// Which file a picture is read from: the name, the scale in it, and the screen's scale.
#pragma once

#import <CoreGraphics/CGBase.h>

namespace sim {

struct ImageFile {
  NSString *path = nil;  // Autoreleased; nil when there is no such file.
  CGFloat scale = 1;
};

/// `path`, or the file beside it whose name carries the scale that suits the screen: "name@3x.png" for "name.png". A
/// name that carries a scale itself is taken as it stands.
ImageFile imageFileAt(NSString *path, CGFloat screenScale);

/// The resource of that name. Without an extension PNG is meant.
ImageFile imageFileNamed(NSString *name, NSBundle *bundle, CGFloat screenScale);

}  // namespace sim
