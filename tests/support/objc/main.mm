#import <Foundation/SIMDevice.h>

#include <gmock/gmock.h>

#include "support/objc/LeaksIgnored.h"

#if __has_feature(address_sanitizer)
/// What a sanitized program needs to name leaked Objective-C objects; ASAN_OPTIONS adds to it. ctest does without the
/// slow unwinding, which takes most of the time of tests that allocate much: it finds the same leaks, but not who made
/// them where GNUstep, built without frame pointers, is in between.
extern "C" const char *__asan_default_options() {
  return "detect_leaks=1:fast_unwind_on_malloc=0:external_symbolizer_path=/usr/bin/llvm-symbolizer-19";
}
#endif

namespace {

/// GNUstep keeps what it makes as it starts, which is no leak of a test.
void startFoundation() {
  const testing_support::LeaksIgnored ignored;
  SIMStartFoundation();
}

}  // namespace

int main(int argc, char **argv) {
  startFoundation();
  @autoreleasepool {
    ::testing::InitGoogleMock(&argc, argv);  // Parameters of tests may be objects.
    return RUN_ALL_TESTS();
  }
}
