// Pictures of the computer on their way into the photo library.
#import <UIKit/UIKit.h>

#include <unistd.h>

#include "simulator/Settings/SessionTest.h"

#include <optional>
#include <utility>

namespace {

class PhotoUploadTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    list_ = startList(@[ @[ @"a" ] ]);
  }

  void pickPhoto() { present(list_, [[[UIImagePickerController alloc] init] autorelease]); }

  NSString *upload(std::string_view content) { return write(@"/.simulator/uploads/1", content); }
  NSString *uploadPicture() {
    UIGraphicsBeginImageContext(CGSizeMake(5, 4));
    NSData *png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    return write(@"/.simulator/uploads/1", png);
  }
  Json item(std::size_t index) { return screen()["sheet"]["items"][index]; }
  Outcome addPhoto(NSString *file, std::optional<std::string> name = {}) {
    return perform(sim::wire::AddPhoto{[onDevice(file) UTF8String], std::move(name)});
  }
  ListPage *list_ = nil;  // Not owned.
};

TEST_F(PhotoUploadTest, APhotoIsAddedAndAnOpenPickerShowsIt) {
  makeFolder(@"/var/mobile/Media/DCIM");
  pickPhoto();
  EXPECT_EQ(screen()["sheet"]["items"], Json::array());
  EXPECT_EQ(addPhoto(uploadPicture(), "a.png"), Outcome::done);
  EXPECT_EQ(reply, Json({{"path", "100APPLE/IMG_0001.PNG"}}));
  EXPECT_EQ(item(0)["path"], "100APPLE/IMG_0001.PNG");
  EXPECT_EQ(send({{"type", "pick"}, {"path", "100APPLE/IMG_0001.PNG"}}), Outcome::done);
}

TEST_F(PhotoUploadTest, APhotoNeedsNoPicker) {
  makeFolder(@"/var/mobile/Media/DCIM");
  EXPECT_EQ(addPhoto(uploadPicture()), Outcome::done);
  EXPECT_EQ(session().revision(), 1u) << "the screen is as before";
}

TEST_F(PhotoUploadTest, WhatIsNoPictureIsRefusedWithASentence) {
  makeFolder(@"/var/mobile/Media/DCIM");
  EXPECT_EQ(addPhoto(upload("text"), "holiday.txt"), Outcome::refused);
  EXPECT_EQ(reply["error"], "“holiday.txt” is damaged, too large, or not a picture.");
  EXPECT_EQ(addPhoto(upload("text")), Outcome::refused);
  EXPECT_EQ(reply["error"], "The file is damaged, too large, or not a picture.");
  EXPECT_EQ(listing(@"/var/mobile/Media/DCIM"), "");
}

TEST_F(PhotoUploadTest, WithoutALibraryAPhotoIsRefused) {
  EXPECT_EQ(addPhoto(uploadPicture()), Outcome::refused);
  EXPECT_EQ(reply["error"], "The device has no photo library: its folder /var/mobile/Media/DCIM is missing.");
  EXPECT_FALSE(exists(@"/var/mobile/Media"));
  EXPECT_TRUE(exists(@"/.simulator/uploads/1"));
}

TEST_F(PhotoUploadTest, ALibraryOnABadDiskIsTheDisksFault) {
  write(@"/var/mobile/Media/DCIM/100APPLE", "a file in the folder's place");
  EXPECT_EQ(addPhoto(uploadPicture(), "a.png"), Outcome::failed);
  EXPECT_EQ(reply.value("error", "").rfind("“a.png” could not be put into the photo library: ", 0), 0u) << reply;
  EXPECT_TRUE(exists(@"/.simulator/uploads/1"));
}

TEST_F(PhotoUploadTest, APhotoIsMovedBehindTheNewest) {
  write(@"/var/mobile/Media/DCIM/100APPLE/IMG_0007.JPG", "x");
  NSString *file = uploadPicture();
  const std::string bytes = read(@"/.simulator/uploads/1");
  EXPECT_EQ(addPhoto(file, "holiday.png"), Outcome::done);
  EXPECT_EQ(reply["path"], "100APPLE/IMG_0008.PNG");
  EXPECT_FALSE(exists(@"/.simulator/uploads/1"));
  EXPECT_EQ(read(@"/var/mobile/Media/DCIM/100APPLE/IMG_0008.PNG"), bytes);
}

TEST_F(PhotoUploadTest, WhatCannotBeReadWholeIsNotAdded) {
  makeFolder(@"/var/mobile/Media/DCIM");
  NSData *whole = [NSData dataWithContentsOfFile:uploadPicture()];
  NSArray *files = @[
    write(@"/in/text", "this is no picture"), write(@"/in/empty", ""),
    write(@"/in/cut", [whole subdataWithRange:NSMakeRange(0, [whole length] / 2)]), path(@"/in/missing"),
    makeFolder(@"/in/folder")
  ];
  for (NSString *file in files) {
    EXPECT_EQ(addPhoto(file, "holiday.txt"), Outcome::refused) << [file UTF8String];
    EXPECT_EQ(reply["error"], "“holiday.txt” is damaged, too large, or not a picture.");
  }
  EXPECT_EQ(listing(@"/var/mobile/Media/DCIM"), "");
  EXPECT_EQ(listing(@"/in"), "cut,empty,folder,text");
}

TEST_F(PhotoUploadTest, AFileThatIsTooLargeIsNotRead) {
  makeFolder(@"/var/mobile/Media/DCIM");
  NSString *file = uploadPicture();
  ASSERT_EQ(::truncate([file fileSystemRepresentation], (200ll << 20) + 1), 0);
  EXPECT_EQ(addPhoto(file), Outcome::refused);
  EXPECT_EQ(reply["error"], "The file is damaged, too large, or not a picture.");
  ASSERT_EQ(::truncate([file fileSystemRepresentation], 200ll << 20), 0);
  EXPECT_EQ(addPhoto(file), Outcome::done) << "what follows a picture is no harm";
}

}  // namespace
