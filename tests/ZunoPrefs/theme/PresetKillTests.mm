// An apply that is killed at any system call that changes the disk.
#import <Foundation/SIMDevice.h>

#include "ZunoPrefs/support/TracedProgram.h"
#include "ZunoPrefs/theme/PresetsTest.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <string>

namespace {

class PresetKillTest : public PresetsTest {
 protected:
  void SetUp() override {
    PresetsTest::SetUp();
    write([kPresets stringByAppendingString:@"/new.plist"], newTheme_);
  }

  /// Applies the preset in another process; see TracedProgram::runUntil.
  int applyUntil(int last) {
    TracedProgram program({BUILD_FOLDER "/tests/support/kill/theme_change",
                           [SIMDeviceFolder() fileSystemRepresentation], "apply", "new"});
    return program.runUntil(last);
  }

  /// Lays out what an apply finds: a theme, unless `oldTheme` is empty, and the backup of an earlier apply.
  void layOut(const std::string &oldTheme) {
    [[NSFileManager defaultManager] removeItemAtPath:path(kPreferences) error:nullptr];
    if (!oldTheme.empty()) write(kThemeFile, oldTheme);
    write(kBackup, oldBackup_);
  }

  /// What holds after a kill, for a theme that was `oldTheme`.
  void expectWhole(const std::string &oldTheme, int call) {
    const std::string theme = read(kThemeFile), backup = read(kBackup);
    EXPECT_TRUE(!exists(kThemeFile) || theme == oldTheme || theme == newTheme_)
        << "the theme is in part at call " << call;
    EXPECT_TRUE(!exists(kBackup) || backup == oldBackup_ || (!oldTheme.empty() && backup == oldTheme))
        << "the backup is in part at call " << call;
    if (!oldTheme.empty()) EXPECT_TRUE(theme == oldTheme || backup == oldTheme) << "the theme is lost at call " << call;
  }

  /// Kills an apply at its first disk-changing call, its second and so on, and checks each time what lies on the disk
  /// and that the next apply works. Returns the number of kills.
  int killEverywhere(const std::string &oldTheme) {
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
      EXPECT_THAT(listing(kPreferences), ::testing::AnyOf(kTheme, kTheme + "," + kTheme + ".bak"))
          << "after call " << call;
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
