// The files of preference domains, which user defaults and CFPreferences share with other processes.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// The identifier of the application whose preferences the process's own are: that of Settings, unless the process has
/// said otherwise. Any thread.
NSString *applicationIdentifier();
/// Main thread, before anybody asks for preferences.
void setApplicationIdentifier(NSString *identifier);

/// The domain that applications share.
extern NSString *const kGlobalDomain;

/// Where a user's preferences lie on the device, those for this device alone, and those of all users. A device keeps
/// the second by its identifier and the third in a folder of the system.
enum class PreferencePlace { user, userOnThisDevice, everybody };

/// The file of a domain: of "com.example.bundle" in the place's folder, or, of a path with or without the ending, that
/// file of the device. nil when there is no device folder, or for a name that is neither.
NSString *preferenceFileOfDomain(NSString *domain, PreferencePlace place = PreferencePlace::user);

/// What the file holds: empty when there is none, nil when it holds no dictionary. Read anew whenever the file has
/// changed, whoever changed it. Any thread.
NSDictionary *preferencesInFile(NSString *file);

/// Stores the values, without the keys that are to go, in one step: the file is whole at any time, and its other keys
/// stay. NO, with a line in the log and the file as it was, when that is not possible: a value that is no property
/// list, a file that holds no dictionary. Any thread; processes that change one file at once may undo each other's
/// change.
BOOL changePreferencesInFile(NSString *file, NSDictionary *values, NSArray *keysToRemove);

/// The whole file anew; nil removes it. As above.
BOOL replacePreferencesInFile(NSString *file, NSDictionary *values);

/// Logs "[Foundation] " and a sentence.
void logNotStored(NSString *file, NSString *why);

}  // namespace sim
