// The device's killall, and its sbreload, which ends "SpringBoard". The end of "backboardd" and of "SpringBoard"
// restarts the user interface, that of "Preferences" Settings alone: killing one tells the simulator, which does so.
// "cfprefsd" is started anew whenever somebody needs it, so that its end changes nothing. There is no other process.
// Works without an environment, and finds the device folder by where it is installed itself.
#include "base/Descriptor.hpp"
#include "device/ProcessPipe.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr std::array<std::string_view, 2> kUserInterface{"backboardd", "SpringBoard"};
constexpr std::string_view kSettings = "Preferences";
constexpr std::string_view kUnnoticed = "cfprefsd";
constexpr std::string_view kInstalledIn = "/var/jb/usr/bin";

// A signal that ends a process which does not expect it.
bool isEndingSignal(std::string_view signal) {
  constexpr std::array<std::string_view, 6> kNames{"9", "KILL", "SIGKILL", "15", "TERM", "SIGTERM"};
  for (const std::string_view name : kNames)
    if (signal == name) return true;
  return false;
}

// The folder that holds the device's files ("" where the device's paths are the system's); nothing when this program
// is not installed in one.
std::optional<std::string> deviceFolder() {
  char path[PATH_MAX];
  const ssize_t size = ::readlink("/proc/self/exe", path, sizeof path);
  const std::string_view program(path, size > 0 ? static_cast<std::size_t>(size) : 0);
  const std::string_view folder = program.substr(0, std::min(program.rfind('/'), program.size()));
  if (!folder.ends_with(kInstalledIn)) return std::nullopt;
  return std::string(folder.substr(0, folder.size() - kInstalledIn.size()));
}

bool kill(std::string_view name) {
  const auto folder = deviceFolder();
  const bool isUserInterface = std::find(kUserInterface.begin(), kUserInterface.end(), name) != kUserInterface.end();
  if (!folder || (!isUserInterface && name != kSettings && name != kUnnoticed)) return false;
  constexpr std::array<char, 2> kEndOfSettings{sim::ProcessPipe::kKillSettings, '\n'};
  const std::string_view request = isUserInterface     ? std::string_view("\n")
                                   : name == kSettings ? std::string_view(kEndOfSettings.data(), kEndOfSettings.size())
                                                       : std::string_view();
  // Without a simulator nobody reads the pipe, and opening it fails.
  const sim::Descriptor pipe(::open((*folder + "/.simulator/backboardd").c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
  return pipe && ::write(pipe.get(), request.data(), request.size()) == static_cast<ssize_t>(request.size());
}

}  // namespace

int main(int count, char** arguments) {
  if (std::string_view(arguments[0]).ends_with("sbreload")) return kill("SpringBoard") ? 0 : 1;
  int first = 1;
  if (first < count && arguments[first][0] == '-') {
    const std::string_view signal = arguments[first] + 1;
    if (!isEndingSignal(signal)) {
      std::fprintf(stderr, "%s: unknown signal\n", arguments[first] + 1);
      return 1;
    }
    ++first;
  }
  if (first >= count) {
    std::fputs("usage: killall [-SIGNAL] NAME...\n", stderr);
    return 1;
  }
  int status = 0;
  for (int i = first; i < count; ++i) {
    if (kill(arguments[i])) continue;
    std::fprintf(stderr, "%s: no process found\n", arguments[i]);
    status = 1;
  }
  return status;
}
