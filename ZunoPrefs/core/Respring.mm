#import "core/Respring.h"

#import "core/DevicePaths.h"

#include <spawn.h>

namespace zuno {

void respring() {
  char tool[] = "killall";
  char signal[] = "-9";
  char daemon[] = "backboardd";
  char *const arguments[] = {tool, signal, daemon, nullptr};
  pid_t child = 0;
  (void)posix_spawn(&child, [killallTool() fileSystemRepresentation], nullptr, nullptr, arguments, nullptr);
}

}  // namespace zuno
