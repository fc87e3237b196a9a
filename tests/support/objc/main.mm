#import <Foundation/SIMDevice.h>

#include <gmock/gmock.h>

#if __has_feature(address_sanitizer)
/// What a sanitized program needs to name leaked Objective-C objects; ASAN_OPTIONS adds to it.
extern "C" const char *__asan_default_options() {
  return "detect_leaks=1:fast_unwind_on_malloc=0:external_symbolizer_path=/usr/bin/llvm-symbolizer-19";
}
#endif

int main(int argc, char **argv) {
  SIMStartFoundation();
  @autoreleasepool {
    ::testing::InitGoogleMock(&argc, argv);  // Parameters of tests may be objects.
    return RUN_ALL_TESTS();
  }
}
