#include "ZunoPrefs/support/BuiltBundle.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace testing_support {
namespace {

NSBundle *loadBundle() {
  const char *given = std::getenv("ZUNO_BUNDLE");
  NSString *folder = given ? [NSString stringWithUTF8String:given]
                           : @BUILD_FOLDER "/device-root/var/jb/Library/PreferenceBundles/ZunoPrefs.bundle";
  NSBundle *bundle = [NSBundle bundleWithPath:folder];
  if (![bundle load]) {
    std::fprintf(stderr, "cannot load the settings bundle at %s\n", [folder UTF8String]);
    std::abort();
  }
  return [bundle retain];
}

}  // namespace

NSBundle *builtBundle() {
  static NSBundle *const bundle = loadBundle();
  return bundle;
}

void *builtSymbol(const char *symbol) {
  // NSBundle opens the code without making its symbols global.
  void *code = dlopen([[builtBundle() executablePath] fileSystemRepresentation], RTLD_NOLOAD | RTLD_LAZY);
  void *place = code ? dlsym(code, symbol) : nullptr;
  if (!place) {
    std::fprintf(stderr, "the settings bundle has no symbol %s\n", symbol);
    std::abort();
  }
  dlclose(code);
  return place;
}

}  // namespace testing_support
