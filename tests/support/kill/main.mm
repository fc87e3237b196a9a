// theme_change DEVICE apply NAME: makes the preset NAME of the device folder DEVICE the theme. Status 0 when there was
// one. theme_change DEVICE remove KEY: takes KEY out of the theme file of the device folder.
#import <Foundation/SIMDevice.h>

#import "core/PreferenceFile.h"
#import "theme/PresetStore.h"

#include <cstdio>
#include <cstring>

int main(int argc, char **argv) {
  const bool applies = argc == 4 && std::strcmp(argv[2], "apply") == 0;
  const bool removes = argc == 4 && std::strcmp(argv[2], "remove") == 0;
  if (!applies && !removes) {
    std::fprintf(stderr, "usage: theme_change DEVICE apply NAME | remove KEY\n");
    return 2;
  }
  SIMStartFoundation();
  @autoreleasepool {
    SIMSetDeviceFolder([NSString stringWithUTF8String:argv[1]]);
    NSString *name = [NSString stringWithUTF8String:argv[3]];
    if (applies) return zuno::applyPreset(zuno::pathOfPreset(name)) ? 0 : 1;
    zuno::PreferenceFile::ofDomain(zuno::kThemeDomain).removeValue(name);
  }
  return 0;
}
