// Importing a preset file that the user picked.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

enum class FileImport {
  kImported,
  kInvalid,     ///< The file is not one that can be imported; nothing was written.
  kCopyFailed,  ///< It could not be copied; nothing was written.
};

/// Copies the picked file at `path` into the presets folder, as "<name>_<n>.plist" with the first free n from 1.
///
/// A file is accepted only when a preset of the same file name already stands in the presets folder, and that preset is
/// a dictionary with a version of 1 or more: the picked file itself is not read.
FileImport importPresetFile(NSString *path);

}  // namespace zuno
