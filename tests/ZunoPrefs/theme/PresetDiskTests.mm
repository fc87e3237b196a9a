// Presets on a disk that is full or that may not be written: what stood there stands, and nothing is left in part.
#import "theme/ZunoPresets+Sharing.h"

#import <Foundation/NSURL+Sim.h>

#include <string>

#include "ZunoPrefs/theme/PresetsTest.h"
#include "support/objc/DiskFaults.h"

namespace {

NSString *const kPreferences = @"/var/jb/var/mobile/Library/Preferences";

class PresetDiskTest : public PresetsTest {
 protected:
  void SetUp() override {
    PresetsTest::SetUp();
    writePreferences(kThemeFile, theme(@"old"));
    writePreset(@"Dark", theme(@"dark"));
    old_ = read(kThemeFile);
    dark_ = read([kPresets stringByAppendingString:@"/Dark.plist"]);
  }
  void TearDown() override {
    [NSURL sim_resetSecurityScopes];
    PresetsTest::TearDown();
  }

  /// A theme larger than what a full disk has left.
  static NSDictionary *theme(NSString *name) {
    NSString *image = [@"" stringByPaddingToLength:200'000 withString:@"x" startingAtIndex:0];
    return @{@"name" : name, @"backgroundImage" : image, @"ZunoPresetVersion" : @1};
  }
  /// Picks a file named as the preset "Dark" on a full disk, and describes the alert that follows.
  std::string pickDark() {
    NSURL *url = [NSURL fileURLWithPath:write(@"/picked/Dark.plist", dark_)];
    [url sim_setSecurityScope:SIMSecurityScopeReadable];
    ZunoPresets *page = showPage();
    auto *picker =
        [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                inMode:UIDocumentPickerModeImport] autorelease];
    {
      const FullDisk full(kLeft);
      [page documentPicker:picker didPickDocumentAtURL:url];
    }
    return describe([page presentedViewController] ? alertOf(page) : nil);
  }
  /// Imports a string and describes the alert that follows.
  template <typename Disk>
  std::string importString(const auto &limit) {
    ZunoPresets *page = showPage();
    NSString *text = [page base64StringFromDict:theme(@"new")];
    {
      const Disk disk(limit);
      [page importPresetWithBase64String:text andName:@"new"];
    }
    return describe([page presentedViewController] ? alertOf(page) : nil);
  }

  static constexpr rlim_t kLeft = 64 * 1024;
  static inline const std::string kImportFailed =
      "Error|Failed to import preset. Please check the preset data and try again.|OK:cancel";
  std::string old_, dark_;
};

TEST_F(PresetDiskTest, AnApplyOnAFullDiskLeavesTheBackup) {
  ZunoPresets *page = showPage();
  {
    const FullDisk full(kLeft);
    [page applyPreset:presetPath(@"Dark")];
  }
  EXPECT_EQ(listing(kPreferences), "com.norvik.Zunoprefs.theme.plist.bak");
  EXPECT_TRUE(read(kBackup) == old_);
}

TEST_F(PresetDiskTest, ASaveOnAFullDiskLeavesNoPreset) {
  ZunoPresets *page = showPage();
  {
    const FullDisk full(kLeft);
    [page savePresetWithName:@"new"];
  }
  EXPECT_EQ(listing(kPresets), "Dark.plist");
  EXPECT_EQ([[page presetsArray] count], 1u);
}

TEST_F(PresetDiskTest, AStringImportOnAFullDiskIsToldAndLeavesNoPreset) {
  EXPECT_EQ(importString<FullDisk>(kLeft), kImportFailed);
  EXPECT_EQ(listing(kPresets), "Dark.plist");
  EXPECT_TRUE(logged("[Zuno] importPresetWithBase64String writeToFile FAILED"));
}

TEST_F(PresetDiskTest, AFileImportOnAFullDiskIsToldAndLeavesNoPreset) {
  EXPECT_EQ(pickDark(), "Error|Failed to import preset|OK:default");
  EXPECT_EQ(listing(kPresets), "Dark.plist");
}

TEST_F(PresetDiskTest, AnApplyInAReadOnlyFolderLeavesTheTheme) {
  ZunoPresets *page = showPage();
  {
    const ReadOnlyFolder folder(path(kPreferences));
    [page applyPreset:presetPath(@"Dark")];
  }
  EXPECT_EQ(listing(kPreferences), "com.norvik.Zunoprefs.theme.plist");
  EXPECT_TRUE(read(kThemeFile) == old_);
}

TEST_F(PresetDiskTest, AReadOnlyFolderOfPresetsStaysAsItIs) {
  ZunoPresets *page = showPage();
  {
    const ReadOnlyFolder folder(path(kPresets));
    [page savePresetWithName:@"new"];
    [page savePresetWithName:@"Dark"];
  }
  EXPECT_EQ(importString<ReadOnlyFolder>(path(kPresets)), kImportFailed);
  EXPECT_EQ(listing(kPresets), "Dark.plist");
  EXPECT_TRUE(read([kPresets stringByAppendingString:@"/Dark.plist"]) == dark_);
}

}  // namespace
