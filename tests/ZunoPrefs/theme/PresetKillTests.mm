// An apply that is killed at any system call that changes the disk.
#import <Foundation/SIMDevice.h>

#include "ZunoPrefs/theme/PresetsTest.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <string>

namespace {

/// What the kernel tells of the call at which a process stopped.
using CallInfo = struct __ptrace_syscall_info;

bool opensForChange(std::uint64_t flags) { return (flags & O_ACCMODE) != O_RDONLY || (flags & (O_CREAT | O_TRUNC)) != 0; }

/// Whether the system call about to be made may change a file, a folder or what is on the disk of it.
bool changesDisk(const CallInfo& call) {
  switch (call.entry.nr) {
#ifdef SYS_open
    case SYS_open:
      return opensForChange(call.entry.args[1]);
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
    case SYS_utimensat:
      return true;
    case SYS_openat:
      return opensForChange(call.entry.args[2]);
    default:
      return false;
  }
}

/// Runs a program under the eye of this process until it ends by itself or is killed.
class TracedProgram final {
 public:
  explicit TracedProgram(const std::array<const char *, 4>& arguments) {
    process_ = ::fork();
    if (process_ != 0) return;
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);  // Stops at the exec.
    std::array<const char *, 2> environment{"ASAN_OPTIONS=detect_leaks=0", nullptr};  // Two tracers do not go together.
    ::execve(arguments[0], const_cast<char **>(arguments.data()), const_cast<char **>(environment.data()));
    ::_exit(127);
  }

  /// Lets the program run, and kills it as it enters call number `last` (from 1) of those that change the disk; 0 lets it
  /// run through. Returns how the program ended, as waitpid() tells it.
  int runUntil(int last) {
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

 private:
  int wait() const {
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
  }
  bool entersChange() const {
    CallInfo call{};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof call, &call) <= 0) return false;
    return call.op == PTRACE_SYSCALL_INFO_ENTRY && changesDisk(call);
  }

  pid_t process_ = -1;
};

class PresetKillTest : public PresetsTest {
 protected:
  void SetUp() override {
    PresetsTest::SetUp();
    write([kPresets stringByAppendingString:@"/new.plist"], newTheme_);
  }

  /// Applies the preset in another process; see TracedProgram::runUntil.
  int applyUntil(int last) {
    TracedProgram program({BUILD_FOLDER "/tests/support/kill/preset_apply", [SIMDeviceFolder() fileSystemRepresentation],
                           "new", nullptr});
    return program.runUntil(last);
  }

  /// Lays out what an apply finds: a theme, unless `oldTheme` is empty, and the backup of an earlier apply.
  void layOut(const std::string& oldTheme) {
    [[NSFileManager defaultManager] removeItemAtPath:path(kPreferences) error:nullptr];
    if (!oldTheme.empty()) write(kThemeFile, oldTheme);
    write(kBackup, oldBackup_);
  }

  /// What holds after a kill, for a theme that was `oldTheme`.
  void expectWhole(const std::string& oldTheme, int call) {
    const std::string theme = read(kThemeFile), backup = read(kBackup);
    EXPECT_TRUE(!exists(kThemeFile) || theme == oldTheme || theme == newTheme_) << "the theme is in part at call " << call;
    EXPECT_TRUE(!exists(kBackup) || backup == oldBackup_ || (!oldTheme.empty() && backup == oldTheme))
        << "the backup is in part at call " << call;
    if (!oldTheme.empty()) EXPECT_TRUE(theme == oldTheme || backup == oldTheme) << "the theme is lost at call " << call;
  }

  /// Kills an apply at its first disk-changing call, its second and so on, and checks each time what lies on the disk and
  /// that the next apply works. Returns the number of kills.
  int killEverywhere(const std::string& oldTheme) {
    for (int call = 1;; ++call) {
      layOut(oldTheme);
      const int status = applyUntil(call);
      if (WIFEXITED(status)) {
        EXPECT_EQ(WEXITSTATUS(status), 0);
        EXPECT_TRUE(read(kThemeFile) == newTheme_);
        RecordProperty("kills", call - 1);
        return call - 1;
      }
      EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "status " << status;
      expectWhole(oldTheme, call);

      [showPage() applyPreset:presetPath(@"new")];
      EXPECT_TRUE(read(kThemeFile) == newTheme_) << "after call " << call;
      EXPECT_THAT(listing(kPreferences), ::testing::AnyOf(kTheme, kTheme + "," + kTheme + ".bak")) << "after call " << call;
      if (HasFailure()) return call;
      drainPool();
    }
  }

  static inline NSString *const kPreferences = @"/var/jb/var/mobile/Library/Preferences";
  static inline const std::string kTheme = "com.norvik.Zunoprefs.theme.plist";
  // Files that no copy writes in one piece.
  const std::string oldTheme_ = std::string(150'000, 'o') + " old";
  const std::string newTheme_ = std::string(200'000, 'n') + " new";
  const std::string oldBackup_ = std::string(100'000, 'b') + " backup";
};

TEST_F(PresetKillTest, AnApplyThatIsNotKilledAppliesAndKeepsTheBackup) {
  layOut(oldTheme_);
  const int status = applyUntil(0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
  EXPECT_TRUE(read(kThemeFile) == newTheme_);
  EXPECT_TRUE(read(kBackup) == oldTheme_);
  EXPECT_EQ(listing(kPreferences), kTheme + "," + kTheme + ".bak");
}

TEST_F(PresetKillTest, AnApplyKilledAtAnyChangeOfTheDiskLeavesTheThemeOrItsBackupWhole) {
  // Removing the old backup, moving the theme, and opening, writing and moving the copy are changes of their own.
  EXPECT_GE(killEverywhere(oldTheme_), 5);
}

TEST_F(PresetKillTest, AnApplyWithoutAThemeIsKilledAsHarmlessly) { EXPECT_GE(killEverywhere(""), 3); }

}  // namespace
