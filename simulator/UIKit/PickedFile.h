// What the pickers share: the device's files as paths, and temporary copies of them.
#pragma once

#import <Foundation/Foundation.h>

#include <string_view>
#include <vector>

namespace sim {

/// The files below `folder` as strings; see filesBelow. Names that are not UTF-8 are left out.
NSArray *pathsBelow(NSString *folder, const std::vector<std::string_view> &extensions = {});

/// A file URL of a copy of `path`, under `name`, in a temporary folder of the device. nil with `error` when the copy
/// fails, or `name` is no name of a file. The copies of a former process are removed when this one makes its first.
NSURL *temporaryCopy(NSString *path, NSString *name, NSError **error);

/// Puts an error with a sentence for people into `error`, if that is not NULL, and answers NO.
BOOL fail(NSError **error, NSInteger code, NSString *sentence);

}  // namespace sim
