#import <dispatch/once.h>

#include <unistd.h>

void dispatch_once(dispatch_once_t *predicate, __attribute__((noescape)) dispatch_block_t block) {
  constexpr dispatch_once_t kRunning = 1, kDone = -1;
  dispatch_once_t expected = 0;
  if (__atomic_compare_exchange_n(predicate, &expected, kRunning, false, __ATOMIC_ACQUIRE, __ATOMIC_ACQUIRE)) {
    block();
    __atomic_store_n(predicate, kDone, __ATOMIC_RELEASE);
    return;
  }
  while (__atomic_load_n(predicate, __ATOMIC_ACQUIRE) != kDone) usleep(100);
}

void dispatch_once_f(dispatch_once_t *predicate, void *context, dispatch_function_t function) {
  dispatch_once(predicate, ^{
    function(context);
  });
}
