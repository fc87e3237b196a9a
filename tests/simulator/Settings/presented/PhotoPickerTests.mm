// The photo picker over the automation interface.
#include "simulator/Settings/SessionTest.h"

/// Notes that a picker was cancelled, and closes it.
@interface PhotoCanceller : NSObject <UIImagePickerControllerDelegate, UINavigationControllerDelegate> {
 @public
  int cancels;
}
@end

@implementation PhotoCanceller
- (void)imagePickerControllerDidCancel:(UIImagePickerController *)picker {
  ++cancels;
  [picker dismissViewControllerAnimated:NO completion:nil];
}
@end

namespace {

/// A page with the photo picker over it.
class PhotoPickerTest : public SessionTest {
 protected:
  NSString *photo(NSString *name, NSData *bytes) {
    return write([@"/var/mobile/Media/DCIM/100APPLE" stringByAppendingPathComponent:name], bytes);
  }
  void openPicker() {
    ListPage *list = startList(@[ @[ @"a" ] ]);
    [list presentViewController:[[[UIImagePickerController alloc] init] autorelease] animated:NO completion:nil];
    EXPECT_TRUE(session().refresh());
  }
  Json image(std::size_t index) { return screen()["sheet"]["items"][index]["image"]; }
  std::string sizeOfThumbnail(std::size_t index) { return sizeOf(session().pngOf(identifierOf(image(index)))); }
};

TEST_F(PhotoPickerTest, PhotosHaveThumbnails) {
  photo(@"a.png", UIImagePNGRepresentation(picture(1000)));
  photo(@"b.png", UIImagePNGRepresentation(picture(20)));
  openPicker();
  EXPECT_EQ(image(0)["width"], 130);
  EXPECT_EQ(image(0)["height"], 130);
  EXPECT_EQ(sizeOfThumbnail(0), "390x390");
  EXPECT_EQ(sizeOfThumbnail(1), "20x20");
  EXPECT_NE(image(0)["url"], image(1)["url"]);
}

TEST_F(PhotoPickerTest, DescribingAgainChangesNothing) {
  photo(@"a.png", UIImagePNGRepresentation(picture(50)));
  openPicker();
  const std::string address = image(0)["url"];
  for (int turn = 0; turn < 3; ++turn) EXPECT_FALSE(session().refresh());
  EXPECT_EQ(sizeOfThumbnail(0), "50x50");
  EXPECT_FALSE(session().refresh()) << "nor does looking at it";
  photo(@"b.png", UIImagePNGRepresentation(picture(60)));
  EXPECT_TRUE(session().refresh());
  EXPECT_EQ(image(0)["url"], address) << "of a photo that is as it was";
}

TEST_F(PhotoPickerTest, AChangedFileHasAnotherThumbnail) {
  photo(@"a.png", UIImagePNGRepresentation(picture(50)));
  openPicker();
  const std::string address = image(0)["url"];
  photo(@"a.png", UIImagePNGRepresentation(picture(60)));
  EXPECT_TRUE(session().refresh());
  EXPECT_NE(image(0)["url"], address);
  EXPECT_EQ(sizeOfThumbnail(0), "60x60");
}

TEST_F(PhotoPickerTest, NothingIsReadToDescribeIt) {
  NSString *file = photo(@"a.png", UIImagePNGRepresentation(picture(50)));
  photo(@"b.jpg", [NSData dataWithBytes:"no photo" length:8]);
  openPicker();
  EXPECT_FALSE(image(1).is_null()) << "that it is none is seen when it is asked for";
  EXPECT_EQ(sizeOfThumbnail(1), "");
  EXPECT_EQ(sizeOfThumbnail(0), "50x50");
  [[NSFileManager defaultManager] removeItemAtPath:file error:nullptr];
  EXPECT_EQ(sizeOfThumbnail(0), "");
}

TEST_F(PhotoPickerTest, APhotoIsPickedByItsItemAndByItsPath) {
  photo(@"a.png", UIImagePNGRepresentation(picture(50)));
  photo(@"b.png", [NSData dataWithBytes:"no photo" length:8]);
  openPicker();
  EXPECT_EQ(screen()["sheet"]["kind"], "photos");
  EXPECT_EQ(screen()["sheet"]["title"], "Photos");
  const Json items = screen()["sheet"]["items"];
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0]["title"], "a.png");
  EXPECT_EQ(items[0]["path"], "100APPLE/a.png");
  std::string beyond = items[1].value("id", "");
  expectRefused({{"type", "tap"}, {"id", beyond}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "“b.png” is damaged, too large, or not a picture.");
  beyond.back() = '2';
  expectRefused({{"type", "tap"}, {"id", beyond}}, Outcome::unknown);
  expectRefused({{"type", "pick"}, {"path", "100APPLE/c.png"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "There is no such photo on the device.");
  // An action of an alert would have the same number.
  expectRefused({{"type", "tap"}, {"id", "action" + items[0].value("id", "").substr(4)}}, Outcome::unknown);
  expectRefused({{"type", "set"}, {"id", items[0]["id"]}, {"value", "x"}}, Outcome::unknown);
  expectRefused({{"type", "paste"}, {"id", items[0]["id"]}}, Outcome::unknown);
  EXPECT_EQ(tap(items[0]["id"]), Outcome::done);
  EXPECT_EQ(send({{"type", "pick"}, {"path", "100APPLE/a.png"}}), Outcome::done)
      << "without a delegate the picker stays";
}

TEST_F(PhotoPickerTest, DismissingItCancels) {
  photo(@"a.png", UIImagePNGRepresentation(picture(50)));
  openPicker();
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_TRUE(screen()["sheet"].is_null());
}

TEST_F(PhotoPickerTest, DismissingItTellsTheDelegateWhichCloses) {
  photo(@"a.png", UIImagePNGRepresentation(picture(50)));
  const auto canceller = objcxx::adopt([[PhotoCanceller alloc] init]);
  ListPage *list = startList(@[ @[ @"a" ] ]);
  UIImagePickerController *picker = [[[UIImagePickerController alloc] init] autorelease];
  [picker setDelegate:canceller.get()];
  present(list, picker);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_EQ(canceller.get()->cancels, 1);
  EXPECT_TRUE(screen()["sheet"].is_null());
}

}  // namespace
