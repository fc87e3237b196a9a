#include "server/ChildProcess.hpp"

#include "base/Failure.hpp"

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

extern "C" {  // The header of glibc 2.36 does not say so itself.
#include <sys/pidfd.h>
}

namespace sim {
namespace {

// For the system to end what it has killed.
constexpr std::chrono::milliseconds kLongestEnd{1'000};

struct SocketPair {
  Descriptor parent;
  Descriptor child;
};

SocketPair makeSocketPair() {
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
    throw Failure::fromErrno("Cannot make a channel to the Settings process", errno);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

// Between fork and exec only calls that are safe after a fork in a process with threads.
[[noreturn]] void becomeProgram(const char* program, char* const* arguments, char* const* environment, int channel,
                                int errors, pid_t parent) {
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  ::signal(SIGPIPE, SIG_DFL);
  ::setpgid(0, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != parent) ::_exit(1);  // The parent had ended before the line above.

  const int nothing = ::open("/dev/null", O_RDONLY);
  ::dup2(nothing, STDIN_FILENO);
  ::dup2(STDERR_FILENO, STDOUT_FILENO);
  ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
  ::fcntl(channel, F_SETFD, 0);
  ::execve(program, arguments, environment);
  const int error = errno;
  [[maybe_unused]] const auto written = ::write(errors, &error, sizeof error);
  ::_exit(127);
}

// The error that kept the program from starting, or nothing.
std::optional<int> startError(int errors) {
  int error = 0;
  ssize_t count;
  do {
    count = ::read(errors, &error, sizeof error);
  } while (count < 0 && errno == EINTR);
  return count == sizeof error ? std::optional(error) : std::nullopt;
}

pid_t startProgram(const ProgramCommand& command, int channel) {
  const std::string& program = command.program;
  std::vector<char*> pointers{const_cast<char*>(program.c_str())};
  for (const std::string& argument : command.arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);

  // A device binds every symbol of a file when it loads it. A file that needs what nobody has is then not loaded, and
  // the program goes on; otherwise the first call would end it.
  std::string bindNow = "LD_BIND_NOW=1";
  std::vector<char*> environment{bindNow.data()};
  for (char** variable = environ; *variable; ++variable) environment.push_back(*variable);
  environment.push_back(nullptr);

  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw Failure::fromErrno("Cannot start " + program, errno);
  const Descriptor reading(ends[0]);
  Descriptor writing(ends[1]);

  const pid_t parent = ::getpid();
  const pid_t child = ::fork();
  if (child < 0) throw Failure::fromErrno("Cannot start " + program, errno);
  if (child == 0) becomeProgram(program.c_str(), pointers.data(), environment.data(), channel, writing.get(), parent);

  writing.reset();
  if (const auto error = startError(reading.get())) {
    ::waitpid(child, nullptr, 0);
    throw Failure::fromErrno("Cannot start " + program, *error);
  }
  return child;
}

}  // namespace

ChildProcess::ChildProcess(const std::function<ProgramCommand(int descriptor)>& command) {
  SocketPair ends = makeSocketPair();
  const ProgramCommand started = command(ends.child.get());
  identifier_ = startProgram(started, ends.child.get());
  channel_.emplace(std::move(ends.parent));
  end_ = Descriptor(::pidfd_open(identifier_, 0));
  if (!end_) {
    const int error = errno;
    kill();
    throw Failure::fromErrno("Cannot watch " + started.program, error);
  }
}

ChildProcess::~ChildProcess() {
  if (!reaped_) kill();
}

std::string ChildProcess::kill() {
  ::kill(-identifier_, SIGKILL);
  ::kill(identifier_, SIGKILL);  // For the moment before the child has made its group.
  int status = 0;
  while (::waitpid(identifier_, &status, 0) < 0 && errno == EINTR) {
  }
  reaped_ = true;
  awaitEnd();
  // A sandbox tells the signal that ended its program as shells do, by a status above 128.
  const int code = WEXITSTATUS(status);
  const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : code > 128 && code < 128 + NSIG ? code - 128 : 0;
  if (signal != 0) return "was ended by signal " + std::to_string(signal) + " (" + ::strsignal(signal) + ")";
  return "exited with status " + std::to_string(code);
}

// The child of a sandbox ends after the sandbox: then nobody has the other end of the channel.
void ChildProcess::awaitEnd() const {
  if (!channel_) return;
  pollfd other{channel_->descriptor(), 0, 0};  // POLLHUP always counts.
  ::poll(&other, 1, static_cast<int>(kLongestEnd.count()));
}

void ChildProcess::stop(std::chrono::milliseconds patience) {
  ::shutdown(channel_->descriptor(), SHUT_RDWR);
  pollfd end{end_.get(), POLLIN, 0};
  ::poll(&end, 1, static_cast<int>(patience.count()));
  kill();
}

}  // namespace sim
