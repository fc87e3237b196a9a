#include "server/Sandbox.hpp"

#include "base/Descriptor.hpp"
#include "base/Failure.hpp"
#include "base/Files.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>

namespace sim {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProgram = "/usr/bin/bwrap";

// What programs of the host need to run at all, to find their fonts, and to tell the time.
constexpr std::array<const char*, 8> kHostFiles{"/usr/lib",     "/usr/lib64",       "/usr/share",
                                                "/etc/fonts",   "/etc/ld.so.cache", "/etc/localtime",
                                                "/etc/GNUstep", "/etc/alternatives"};
// Links to folders above, on systems that have merged them.
constexpr std::array<const char*, 2> kHostLinks{"/lib", "/lib64"};
// Folders at the top that are not the device's.
constexpr std::array<std::string_view, 8> kTaken{"bin", "dev", "etc", "lib", "lib64", "proc", "run", "tmp"};
constexpr std::array<std::string_view, 3> kTakenInUsr{"lib", "lib64", "share"};

// Where the program's own folder and what its libraries keep are found.
const fs::path kPrograms = "/run/simulator";
constexpr const char* kCache = "/run/cache";

// What a program may know of the host's environment: the language, the time zone, and how sanitizers are set.
constexpr std::array<const char*, 6> kVariables{"LANG",         "LC_ALL",       "TZ",
                                                "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"};

template <typename Names>
bool isIn(const Names& names, const fs::path& name) {
  return std::find(names.begin(), names.end(), name.string()) != names.end();
}

// The entries of a folder, sorted.
std::vector<fs::path> entriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    entries.push_back(entry->path());
  std::sort(entries.begin(), entries.end());
  return entries;
}

class Arguments final {
 public:
  template <typename... Words>
  void add(const Words&... words) {
    (all_.emplace_back(words), ...);
  }
  std::vector<std::string> all() && { return std::move(all_); }

 private:
  std::vector<std::string> all_;
};

void addHost(Arguments& to) {
  for (const char* file : kHostFiles) to.add("--ro-bind-try", file, file);
  std::error_code error;
  for (const char* link : kHostLinks) {
    const auto target = fs::read_symlink(link, error);
    if (error) to.add("--ro-bind-try", link, link);
    else to.add("--symlink", target.string(), link);
  }
  to.add("--ro-bind-try", "/var/cache/fontconfig", std::string(kCache) + "/fontconfig");
  to.add("--ro-bind-try", fs::canonical("/bin/sh", error).string(), "/bin/sh");
}

void addDevice(Arguments& to, const fs::path& folder) {
  for (const fs::path& entry : entriesOf(folder)) {
    const fs::path name = entry.filename();
    if (name != "usr" && !isIn(kTaken, name)) to.add("--bind", entry.string(), ("/" / name).string());
  }
  for (const fs::path& entry : entriesOf(folder / "usr")) {
    const fs::path name = entry.filename();
    if (!isIn(kTakenInUsr, name)) to.add("--bind", entry.string(), ("/usr" / name).string());
  }
  // As on a device, where the folder does not have them itself.
  std::error_code error;
  if (!fs::exists(fs::symlink_status(folder / "private", error))) to.add("--symlink", "/var", "/private/var");
  if (!fs::exists(fs::symlink_status(folder / "User", error))) to.add("--symlink", "/var/mobile", "/User");
}

void addEnvironment(Arguments& to) {
  to.add("--clearenv", "--setenv", "LD_BIND_NOW", "1", "--setenv", "HOME", "/var/mobile");
  to.add("--setenv", "PATH", "/var/jb/usr/bin:/var/jb/bin:/usr/bin:/bin", "--setenv", "XDG_CACHE_HOME", kCache);
  for (const char* variable : kVariables)
    if (const char* value = ::getenv(variable)) to.add("--setenv", variable, value);
}

// The first line of what comes until the end.
std::string textFrom(int descriptor) {
  std::string text;
  std::array<char, 1024> part;
  ssize_t count;
  while ((count = ::read(descriptor, part.data(), part.size())) > 0 || (count < 0 && errno == EINTR))
    if (count > 0) text.append(part.data(), static_cast<std::size_t>(count));
  return text.substr(0, text.find('\n'));
}

}  // namespace

Sandbox::Sandbox(fs::path deviceFolder, const fs::path& ownFolder)
    : deviceFolder_(std::move(deviceFolder)), users_(ownFolder / "passwd") {
  constexpr std::string_view kUsers = "mobile:x:501:501:Mobile User:/var/mobile:/bin/sh\n";
  if (const int error = writeFileAtomically(users_, std::as_bytes(std::span(kUsers))))
    throw Failure::fromErrno("Cannot write " + users_.string(), error);
}

std::vector<std::string> Sandbox::options(const fs::path& programs) const {
  Arguments all;
  all.add("--unshare-all", "--die-with-parent", "--new-session", "--uid", "501", "--gid", "501");
  all.add("--proc", "/proc", "--dev", "/dev", "--tmpfs", "/tmp");
  addHost(all);
  addDevice(all, deviceFolder_);
  all.add("--ro-bind", users_.string(), "/etc/passwd");
  all.add("--ro-bind-try", programs.string(), kPrograms.string());
  all.add("--remount-ro", "/", "--chdir", "/var/mobile");
  addEnvironment(all);
  return std::move(all).all();
}

ProgramCommand Sandbox::command(const fs::path& program, const std::vector<std::string>& arguments) const {
  // Else only the sandbox, which is there, would say so.
  if (::access(program.c_str(), X_OK) != 0) throw Failure::fromErrno("Cannot start " + program.string(), errno);
  ProgramCommand command{kProgram, options(program.parent_path())};
  command.arguments.push_back((kPrograms / program.filename()).string());
  command.arguments.insert(command.arguments.end(), arguments.begin(), arguments.end());
  return command;
}

std::string Sandbox::problem() const {
  std::vector<std::string> words = options("/nonexistent");
  words.insert(words.begin(), kProgram);
  for (const char* word : {"/bin/sh", "-c", ":"}) words.emplace_back(word);
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return std::strerror(errno);
  const Descriptor reading(ends[0]);
  Descriptor writing(ends[1]);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(&actions, writing.get(), STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, writing.get(), STDERR_FILENO);
  pid_t child = 0;
  const int error = ::posix_spawn(&child, kProgram, &actions, nullptr, pointers.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (error == ENOENT) return "Debian's package bubblewrap is not installed";
  if (error != 0) return std::strerror(error);
  writing.reset();

  const std::string said = textFrom(reading.get());
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
  return said.empty() ? "bubblewrap fails" : said;
}

}  // namespace sim
