// preset_apply DEVICE NAME: makes the preset NAME of the device folder DEVICE the theme. Status 0 when there was one.
#import <Foundation/SIMDevice.h>

#import "theme/PresetStore.h"

#include <cstdio>

int main(int argc, char **argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: preset_apply DEVICE NAME\n");
    return 2;
  }
  SIMStartFoundation();
  @autoreleasepool {
    SIMSetDeviceFolder([NSString stringWithUTF8String:argv[1]]);
    return zuno::applyPreset(zuno::pathOfPreset([NSString stringWithUTF8String:argv[2]])) ? 0 : 1;
  }
}
