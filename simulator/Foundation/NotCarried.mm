#import <Foundation/NotCarried.h>

#include <mutex>
#include <set>
#include <string>

namespace sim {

void notCarried(NSString *what, NSString *instead) {
  static std::mutex mutex;
  static std::set<std::string> said;
  {
    const std::lock_guard lock(mutex);
    if (!said.emplace([what UTF8String]).second) return;
  }
  NSLog(@"[simulator] %@ is set, which is not carried: %@", what, instead);
}

}  // namespace sim
