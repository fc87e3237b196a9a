#include "ZunoPrefs/support/TracedProgram.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>

namespace testing_support {
namespace {

/// What the kernel tells of the call at which a process stopped.
using CallInfo = struct __ptrace_syscall_info;

bool opensForChange(std::uint64_t flags) {
  return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0;
}

/// Whether the system call about to be made may change a file, a folder or what is on the disk of it.
bool changesDisk(const CallInfo& call) {
  switch (call.entry.nr) {
#ifdef SYS_open
    case SYS_open: return opensForChange(call.entry.args[1]);
    case SYS_creat:
    case SYS_rename:
    case SYS_unlink:
    case SYS_rmdir:
    case SYS_link:
    case SYS_symlink:
    case SYS_mkdir:
    case SYS_chmod:
    case SYS_chown:
    case SYS_lchown:
    case SYS_utime:
    case SYS_utimes:
    case SYS_renameat:
#endif
    case SYS_openat2:
    case SYS_write:
    case SYS_pwrite64:
    case SYS_writev:
    case SYS_pwritev:
    case SYS_pwritev2:
    case SYS_sendfile:
    case SYS_splice:
    case SYS_copy_file_range:
    case SYS_renameat2:
    case SYS_unlinkat:
    case SYS_linkat:
    case SYS_symlinkat:
    case SYS_mkdirat:
    case SYS_truncate:
    case SYS_ftruncate:
    case SYS_fallocate:
    case SYS_fsync:
    case SYS_fdatasync:
    case SYS_fchmod:
    case SYS_fchmodat:
    case SYS_fchown:
    case SYS_fchownat:
    case SYS_utimensat: return true;
    case SYS_openat: return opensForChange(call.entry.args[2]);
    default: return false;
  }
}

}  // namespace

TracedProgram::TracedProgram(std::vector<const char*> arguments) {
  arguments.push_back(nullptr);
  process_ = ::fork();
  if (process_ != 0) return;
  ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);                                   // Stops at the exec.
  std::array<const char*, 2> environment{"ASAN_OPTIONS=detect_leaks=0", nullptr};  // Two tracers do not go together.
  ::execve(arguments[0], const_cast<char**>(arguments.data()), const_cast<char**>(environment.data()));
  ::_exit(127);
}

int TracedProgram::runUntil(int last) {
  int status = wait();
  if (!WIFSTOPPED(status)) return status;
  EXPECT_EQ(::ptrace(PTRACE_SETOPTIONS, process_, nullptr, PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD), 0);
  int signal = 0;
  for (int calls = 0; WIFSTOPPED(status);) {
    ::ptrace(PTRACE_SYSCALL, process_, nullptr, signal);
    status = wait();
    const bool atCall = WIFSTOPPED(status) && WSTOPSIG(status) == (SIGTRAP | 0x80);
    signal = WIFSTOPPED(status) && !atCall ? WSTOPSIG(status) : 0;
    if (atCall && entersChange() && ++calls == last) ::kill(process_, SIGKILL);
  }
  return status;
}

int TracedProgram::wait() const {
  int status = 0;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

bool TracedProgram::entersChange() const {
  CallInfo call{};
  if (::ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof call, &call) <= 0) return false;
  return call.op == PTRACE_SYSCALL_INFO_ENTRY && changesDisk(call);
}

}  // namespace testing_support
