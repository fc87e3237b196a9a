// The document picker over the automation interface: files of the device, and of the computer.
#import <UIKit/UIKit.h>

#include "simulator/Settings/SessionTest.h"

#include <optional>

/// Notes what it was given.
@interface FileReceiver : NSObject <UIDocumentPickerDelegate> {
 @public
  objcxx::Retained<NSURL> url;
  int cancels;
}
@end

@implementation FileReceiver
- (void)documentPickerWasCancelled:(UIDocumentPickerViewController *)picker {
  ++cancels;
}
- (void)documentPicker:(UIDocumentPickerViewController *)picker didPickDocumentAtURL:(NSURL *)given {
  url = objcxx::share(given);
}
@end

namespace {

class DocumentPickerTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    list_ = startList(@[ @[ @"a" ] ]);
  }
  void pickDocument() {
    UIDocumentPickerViewController *picker =
        [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                inMode:UIDocumentPickerModeImport] autorelease];
    [picker setDelegate:receiver_.get()];
    present(list_, picker);
  }
  NSString *upload(std::string_view content) { return write(@"/.simulator/uploads/1", content); }
  Outcome pickFile(NSString *file, const char *name, std::optional<std::uint64_t> revision = {}) {
    return perform(sim::wire::PickFile{[onDevice(file) UTF8String], name, revision});
  }
  Json item(std::size_t index) { return screen()["sheet"]["items"][index]; }
  NSString *pickedName() { return [[receiver_.get()->url.get() path] lastPathComponent]; }

  ListPage *list_ = nil;  // Not owned.
  objcxx::Retained<FileReceiver> receiver_ = objcxx::adopt([[FileReceiver alloc] init]);
};

TEST_F(DocumentPickerTest, TheFilesOfTheDeviceAreListedAndPicked) {
  write(@"/var/mobile/Documents/a/Dark.plist", "<plist/>");
  write(@"/var/mobile/Documents/b.txt", "b");
  write(@"/var/mobile/Documents/c.png", UIImagePNGRepresentation(picture(20)));
  pickDocument();
  EXPECT_EQ(screen()["sheet"]["kind"], "documents");
  EXPECT_EQ(screen()["sheet"]["title"], "Files");
  ASSERT_EQ(screen()["sheet"]["items"].size(), 3u);
  EXPECT_EQ(item(0)["title"], "Dark.plist");
  EXPECT_EQ(item(0)["path"], "a/Dark.plist");
  for (std::size_t each = 0; each < 3; ++each)
    EXPECT_TRUE(item(each)["image"].is_null()) << "documents are no pictures";
  std::string beyond = item(2).value("id", "");
  beyond.back() = '3';
  expectRefused({{"type", "tap"}, {"id", beyond}}, Outcome::unknown);
  expectRefused({{"type", "pick"}, {"path", "c.txt"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "There is no such file on the device.");
  EXPECT_EQ(tap(item(1)["id"]), Outcome::done);
  EXPECT_OBJC_EQ(pickedName(), @"b.txt");
  pickDocument();
  EXPECT_EQ(tap(item(0)["id"]), Outcome::done) << "in a folder";
  EXPECT_OBJC_EQ(pickedName(), @"Dark.plist");
  receiver_.get()->url = nullptr;
  pickDocument();
  EXPECT_EQ(send({{"type", "pick"}, {"path", "a/Dark.plist"}}), Outcome::done);
  EXPECT_OBJC_EQ(pickedName(), @"Dark.plist");
  EXPECT_TRUE(screen()["sheet"].is_null());
}

TEST_F(DocumentPickerTest, DismissingItCancels) {
  pickDocument();
  const Json colour{{"type", "set"}, {"id", "color2"}, {"value", "#ff0000"}};
  expectRefused(colour, Outcome::unknown);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_EQ(receiver_.get()->cancels, 1);
  EXPECT_TRUE(screen()["sheet"].is_null());
}

TEST_F(DocumentPickerTest, AFileOfTheComputerIsPickedUnderItsName) {
  pickDocument();
  EXPECT_EQ(pickFile(upload("content"), "Dark.plist"), Outcome::done);
  EXPECT_EQ(reply, screen());
  EXPECT_EQ(reply["sheet"], nullptr);
  EXPECT_OBJC_EQ([[receiver_.get()->url.get() path] lastPathComponent], @"Dark.plist");
  EXPECT_OBJC_EQ([NSString stringWithContentsOfFile:[receiver_.get()->url.get() path]], @"content");
}

TEST_F(DocumentPickerTest, WithoutADocumentPickerNoFileIsPicked) {
  EXPECT_EQ(pickFile(upload("x"), "a"), Outcome::refused);
  makeFolder(@"/var/mobile/Media/DCIM");
  present(list_, [[[UIImagePickerController alloc] init] autorelease]);
  EXPECT_EQ(pickFile(upload("x"), "a"), Outcome::refused);
  EXPECT_EQ(screen()["sheet"]["kind"], "photos");
  EXPECT_FALSE(exists(@"/var/mobile/tmp"));
}

TEST_F(DocumentPickerTest, AFileForAnotherRevisionIsRefused) {
  pickDocument();
  const auto revision = session().revision();
  EXPECT_EQ(pickFile(upload("x"), "a", revision + 1), Outcome::stale);
  EXPECT_OBJC_EQ(receiver_.get()->url.get(), nil);
  EXPECT_EQ(pickFile(upload("x"), "a", revision), Outcome::done);
}

TEST_F(DocumentPickerTest, AFileWithoutAUsableNameIsRefused) {
  pickDocument();
  for (const char *name : {"..", "a/b", ""}) EXPECT_NE(pickFile(upload("x"), name), Outcome::done) << name;
  EXPECT_OBJC_EQ(receiver_.get()->url.get(), nil);
  EXPECT_EQ(screen()["sheet"]["kind"], "documents");
}

}  // namespace
