#import <Foundation/Foundation.h>

/// Resolved values of the main preference file: the master switch and the default table applied.
///
/// Class methods only; no state, no cache: every call reads the file again. Main thread only.
@interface KRBPreferenceManager : NSObject

/// The default of every key that has one. Constant; booleans are the integers 0 and 1.
+ (NSDictionary *)defaultPrefs;

/// The main preference file as it stands; an empty dictionary when it cannot be read.
+ (NSDictionary *)getPrefs;

/// The value in force for `key`, or nil when the file holds none and the key has no default.
///
/// While the master switch "Enabled" is off, every key but "Enabled" and "ShownWelcome" has its default whatever the
/// file holds. An exception while reading gives the integer 0. A stored value has whatever type the file gives it:
/// callers check the type before they use it.
+ (id)getPrefForKey:(NSString *)key;

/// The version of the preference layout: the integer 2.
+ (NSNumber *)kCurrentVersion;

@end
