#import "theme/ThemeChange.h"

namespace zuno {

NSString *const kThemeChanged = @"ZunoThemeChanged";

void tellThemeChanged() { [[NSNotificationCenter defaultCenter] postNotificationName:kThemeChanged object:nil]; }

}  // namespace zuno
