#include "ZunoPrefs/theme/PresetsTest.h"

namespace testing_support {

NSString *const kPresets = @"/var/jb/Library/Zuno/Presets";
NSString *const kBackup = @"/var/jb/var/mobile/Library/Preferences/com.norvik.Zunoprefs.theme.plist.bak";

}  // namespace testing_support
