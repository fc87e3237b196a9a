// The settings bundle as it was built, which every test of it tries.
#pragma once

#import <Foundation/Foundation.h>

namespace testing_support {

/// The bundle that the build has made, or the one whose folder the environment variable ZUNO_BUNDLE names. Its code is
/// loaded, once per process, as Settings loads it; the process ends if that fails.
NSBundle *builtBundle();

/// Where the bundle's code holds `symbol`, a name as the linker knows it; the process ends if it has none.
void *builtSymbol(const char *symbol);

}  // namespace testing_support
