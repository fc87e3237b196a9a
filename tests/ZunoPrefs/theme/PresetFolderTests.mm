// The log says why no preset can be saved: the folder is not there, or this process may not write to it.
#import <Foundation/SIMDevice.h>

#include <sys/stat.h>
#include <unistd.h>

#include "ZunoPrefs/theme/PresetsTest.h"

namespace {

constexpr uid_t kNobody = 65534;
const char *const kNotice = "[Zuno] No preset can be saved: ";

class PresetFolderTest : public PresetsTest {
 protected:
  /// Shows the page with a presets folder that has these permissions. The superuser may write anywhere: for what is
  /// allowed, this process then counts as somebody else.
  void showWithMode(mode_t mode) {
    makeFolder(kPresets);
    EXPECT_EQ(::chmod([SIMDeviceFolder() fileSystemRepresentation], 0755), 0);
    EXPECT_EQ(::chmod([path(kPresets) fileSystemRepresentation], mode), 0);
    const bool superuser = ::getuid() == 0;
    if (superuser) EXPECT_EQ(::setreuid(kNobody, -1), 0);
    [newPage() loadPresets];
    if (superuser) EXPECT_EQ(::setreuid(0, -1), 0);
    ::chmod([path(kPresets) fileSystemRepresentation], 0755);
  }
};

TEST_F(PresetFolderTest, AFolderThatMayBeWrittenIsNothingToTell) {
  showWithMode(0777);
  EXPECT_FALSE(logged(kNotice));
}

TEST_F(PresetFolderTest, AFolderThatIsMadeIsNothingToTell) {
  [newPage() loadPresets];
  EXPECT_EQ(listing(kPresets), "");
  EXPECT_FALSE(logged(kNotice));
}

TEST_F(PresetFolderTest, AFolderThatMayNotBeWrittenIsTold) {
  showWithMode(0555);
  EXPECT_FALSE(log.empty());
  for (const auto &line : log) {
    EXPECT_EQ(line, kNotice + std::string([path(kPresets) UTF8String]) + " is no folder that may be written");
  }
}

TEST_F(PresetFolderTest, AFolderThatCannotBeMadeIsTold) {
  write([kPresets stringByDeletingLastPathComponent], "a file where a folder should be");
  ZunoPresets *page = newPage();
  [page loadPresets];
  EXPECT_EQ([[page presetsArray] count], 0u);
  EXPECT_TRUE(logged(std::string(kNotice) + [path(kPresets) UTF8String]));
}

TEST_F(PresetFolderTest, AFileInItsPlaceIsTold) {
  write(kPresets, "a file");
  [newPage() loadPresets];
  EXPECT_TRUE(logged(kNotice));
}

}  // namespace
