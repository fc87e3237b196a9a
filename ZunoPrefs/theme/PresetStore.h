// The preset files: copies of the theme preference file in a folder of their own.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The outcome of checking a name that the user entered.
struct PresetName {
  NSString *name;   ///< The cleaned name, autoreleased; nil when it was refused.
  NSString *error;  ///< Why it was refused; nil otherwise.
};

/// Paths of the presets, in the order in which the file system lists them; the folder is made if it is missing. The log
/// is told when that fails or when it may not be written: on a device the package brings it, and mobile owns it.
/// Autoreleased.
NSArray *presetPaths();

/// The name of the preset at `path`: its file name without the extension.
NSString *presetNameOf(NSString *path);
/// Where the preset `name` is stored.
NSString *pathOfPreset(NSString *name);
bool presetExists(NSString *name);

/// Cleans `name` (forbidden characters and ".plist" go; spaces stay) and checks it: not blank, at most 32 UTF-16 units,
/// not taken.
PresetName checkPresetName(NSString *name);

/// Stores the current theme as the preset `name` (nil: a random name), in place of one of that name. Without a theme
/// file nothing is stored and false returned. A theme file that is no dictionary is stored as it is.
bool savePreset(NSString *name);

/// Makes the preset at `path` the theme; the theme until now becomes the one backup. Without a file at `path` nothing
/// changes and false is returned. Other failures are not reported: the theme or its backup is whole on disk.
bool applyPreset(NSString *path);

/// Removes the preset at `path`; a failure is not reported.
void deletePreset(NSString *path);

/// Stores `contents` as the preset `name`, in place of one of that name. False when it cannot be written as a property
/// list; then no file is left.
bool writePreset(NSDictionary *contents, NSString *name);

/// Copies the item at `from` to `to`, where nothing lies: whole or, when it fails or the process ends, not at all.
/// Whether it was copied.
bool copyWhole(NSString *from, NSString *to);

}  // namespace zuno
