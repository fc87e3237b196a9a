// Classes by name, as GNUstep's own finds them. In the log stands which name no class has: a maker who has misspelt it
// sees nothing happen.
#import <Foundation/Foundation.h>

#import <Foundation/SIMDevice.h>

#include <dlfcn.h>

#include <mutex>
#include <set>
#include <string>

namespace {

bool isFirst(NSString *line) {
  static std::mutex mutex;
  static auto *lines = new std::set<std::string>;
  const std::lock_guard lock(mutex);
  return lines->insert([line UTF8String]).second;
}

}  // namespace

extern "C" Class NSClassFromString(NSString *name) {
  static auto *const next = reinterpret_cast<Class (*)(NSString *)>(dlsym(RTLD_NEXT, "NSClassFromString"));
  Class found = next(name);
  if (found || !name) return found;
  if (NSString *file = SIMDeviceCodeFile(__builtin_return_address(0))) {
    NSString *line =
        [NSString stringWithFormat:@"[Foundation] There is no class \"%@\", for which %@ asks", name, file];
    if (isFirst(line)) NSLog(@"%@", line);
  }
  return found;
}
