// One property list that holds a dictionary: read whole, changed in one key, written whole.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// The value under `key`; nil when there is none or the file holds no dictionary.
id valueInFile(NSString *key, NSString *file);

/// Stores a property-list value under `key`, atomically; every other key of the file stays. NO with a log line, and
/// nothing written, when the value cannot be stored or the file exists without holding a dictionary.
bool storeInFile(id value, NSString *key, NSString *file);

/// `name` with the extension "plist" in a folder of the device; nil with a log line when it is no file name.
NSString *preferenceFile(NSString *folder, NSString *name);

}  // namespace sim
