// For what a library keeps for good, which is no leak of ours.
#pragma once

#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#endif

namespace testing_support {

/// Memory that the thread allocates while this exists is not told of as leaked. Needs no stacks, as suppressions do.
class LeaksIgnored final {
#if __has_feature(address_sanitizer)
  __lsan::ScopedDisabler disabler_;
#endif
 public:
  LeaksIgnored() {}
  LeaksIgnored(const LeaksIgnored&) = delete;
  LeaksIgnored& operator=(const LeaksIgnored&) = delete;
};

}  // namespace testing_support
