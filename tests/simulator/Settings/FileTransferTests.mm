// Files between the computer and the device, as the Settings process handles them.
#import <UIKit/UIKit.h>
#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

/// Notes what it was given.
@interface FileReceiver : NSObject <UIDocumentPickerDelegate> {
 @public
  objcxx::Retained<NSURL> url;
}
@end

@implementation FileReceiver
- (void)documentPicker:(UIDocumentPickerViewController *)picker didPickDocumentAtURL:(NSURL *)given {
  url = objcxx::share(given);
}
@end

namespace {

class FileTransferTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    list_ = startList(@[ @[ @"a" ] ]);
  }

  void present(UIViewController *controller) {
    [list_ presentViewController:controller animated:YES completion:nil];
    session().refresh();
  }
  UIActivityViewController *share(NSArray *items) {
    UIActivityViewController *sheet = [[[UIActivityViewController alloc] initWithActivityItems:items
                                                                         applicationActivities:nil] autorelease];
    const auto note = objcxx::share(list_->calls.get());
    [sheet setCompletionWithItemsHandler:^(UIActivityType type, BOOL completed, NSArray *, NSError *) {
      [note.get() addObject:[NSString stringWithFormat:@"%@ %d", [type pathExtension], completed ? 1 : 0]];
    }];
    present(sheet);
    return sheet;
  }
  void pickDocument() {
    UIDocumentPickerViewController *picker =
        [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                inMode:UIDocumentPickerModeImport] autorelease];
    [picker setDelegate:receiver_.get()];
    present(picker);
  }
  void pickPhoto() {
    UIImagePickerController *picker = [[[UIImagePickerController alloc] init] autorelease];
    present(picker);
  }

  NSString *upload(std::string_view content) { return write(@"/.simulator/uploads/1", content); }
  NSString *uploadPicture() {
    UIGraphicsBeginImageContext(CGSizeMake(5, 4));
    NSData *png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    return write(@"/.simulator/uploads/1", png);
  }
  Json item(std::size_t index) { return screen()["sheet"]["items"][index]; }
  int tapPart(const Json &item, const char *part) {
    return send({{"type", "tap"}, {"id", item["id"]}, {"part", part}});
  }
  /// The status; the answer is in `reply`.
  int take(const sim::Reply &answer) {
    reply = Json::parse(answer.body, nullptr, false);
    return answer.status;
  }
  int pickFile(NSString *file, const Json &more) {
    Json request{{"file", [file UTF8String]}};
    request.update(more);
    return take(session().pickFile(request));
  }
  int addPhoto(NSString *file, const Json &more = Json::object()) {
    Json request{{"file", [file UTF8String]}};
    request.update(more);
    return take(session().addPhoto(request));
  }
  /// The bytes of a shared item, or "STATUS sentence".
  std::string shared(const std::string &identifier) {
    sim::Reply problem;
    NSData *content = session().sharedContentOf(identifier, problem);
    if (content) return std::string(static_cast<const char *>([content bytes]), [content length]);
    return std::to_string(problem.status) + " " + Json::parse(problem.body, nullptr, false).value("error", "");
  }

  ListPage *list_ = nil;  // Not owned.
  objcxx::Retained<FileReceiver> receiver_ = objcxx::adopt([[FileReceiver alloc] init]);
};

TEST_F(FileTransferTest, APhotoIsAddedAndAnOpenPickerShowsIt) {
  makeFolder(@"/var/mobile/Media/DCIM");
  pickPhoto();
  EXPECT_EQ(screen()["sheet"]["items"], Json::array());
  EXPECT_EQ(addPhoto(uploadPicture(), {{"name", "a.png"}}), 200);
  EXPECT_EQ(reply, Json({{"path", "100APPLE/IMG_0001.PNG"}}));
  EXPECT_TRUE(session().refresh());
  EXPECT_EQ(item(0)["path"], "100APPLE/IMG_0001.PNG");
  EXPECT_EQ(send({{"type", "pick"}, {"path", "100APPLE/IMG_0001.PNG"}}), 200);
}

TEST_F(FileTransferTest, APhotoNeedsNoPicker) {
  makeFolder(@"/var/mobile/Media/DCIM");
  EXPECT_EQ(addPhoto(uploadPicture()), 200);
  EXPECT_FALSE(session().refresh()) << "the screen is as before";
}

TEST_F(FileTransferTest, WhatIsNoPictureIsRefusedWithASentence) {
  makeFolder(@"/var/mobile/Media/DCIM");
  EXPECT_EQ(addPhoto(upload("text"), {{"name", "holiday.txt"}}), 422);
  EXPECT_EQ(reply["error"], "“holiday.txt” is damaged, too large, or not a picture.");
  EXPECT_EQ(addPhoto(upload("text")), 422);
  EXPECT_EQ(reply["error"], "The file is damaged, too large, or not a picture.");
  EXPECT_EQ(take(session().addPhoto(Json::object())), 400);
  EXPECT_EQ(listing(@"/var/mobile/Media/DCIM"), "");
}

TEST_F(FileTransferTest, WithoutALibraryAPhotoIsRefused) {
  EXPECT_EQ(addPhoto(uploadPicture()), 422);
  EXPECT_FALSE(exists(@"/var/mobile/Media"));
}

TEST_F(FileTransferTest, ALibraryOnABadDiskIsTheDisksFault) {
  write(@"/var/mobile/Media/DCIM/100APPLE", "a file in the folder's place");
  EXPECT_EQ(addPhoto(uploadPicture()), 500);
  EXPECT_FALSE(reply.value("error", "").empty());
}

TEST_F(FileTransferTest, AFileOfTheComputerIsPickedUnderItsName) {
  pickDocument();
  EXPECT_EQ(pickFile(upload("content"), {{"name", "Dark.plist"}}), 200);
  EXPECT_EQ(reply, screen());
  EXPECT_EQ(reply["sheet"], nullptr);
  EXPECT_OBJC_EQ([[receiver_.get()->url.get() path] lastPathComponent], @"Dark.plist");
  EXPECT_OBJC_EQ([NSString stringWithContentsOfFile:[receiver_.get()->url.get() path]], @"content");
}

TEST_F(FileTransferTest, WithoutADocumentPickerNoFileIsPicked) {
  EXPECT_EQ(pickFile(upload("x"), {{"name", "a"}}), 422);
  makeFolder(@"/var/mobile/Media/DCIM");
  pickPhoto();
  EXPECT_EQ(pickFile(upload("x"), {{"name", "a"}}), 422);
  EXPECT_EQ(screen()["sheet"]["kind"], "photos");
  EXPECT_FALSE(exists(@"/var/mobile/tmp"));
}

TEST_F(FileTransferTest, AFileForAnotherRevisionIsRefused) {
  pickDocument();
  const auto revision = session().revision();
  EXPECT_EQ(pickFile(upload("x"), {{"name", "a"}, {"revision", revision + 1}}), 409);
  EXPECT_OBJC_EQ(receiver_.get()->url.get(), nil);
  EXPECT_EQ(pickFile(upload("x"), {{"name", "a"}, {"revision", revision}}), 200);
}

TEST_F(FileTransferTest, AFileWithoutAUsableNameIsRefused) {
  pickDocument();
  EXPECT_EQ(pickFile(upload("x"), Json::object()), 400);
  EXPECT_EQ(take(session().pickFile({{"name", "a"}})), 400);
  for (const char *name : {"..", "a/b", ""}) EXPECT_GE(pickFile(upload("x"), {{"name", name}}), 400) << name;
  EXPECT_OBJC_EQ(receiver_.get()->url.get(), nil);
  EXPECT_EQ(screen()["sheet"]["kind"], "documents");
}

TEST_F(FileTransferTest, SharedItemsTellWhatCanBeDoneWithThem) {
  NSURL *text = [NSURL fileURLWithPath:write(@"/var/Dark.plist", "<plist/>")];
  NSURL *bytes = [NSURL fileURLWithPath:write(@"/var/Dark.bin", "\xff")];
  share(@[ @"a text", text, bytes, [NSURL URLWithString:@"https://example.org/"], @7 ]);
  EXPECT_EQ(screen()["sheet"]["kind"], "share");
  const auto check = [this](std::size_t index, const char *title, Json activities, Json copied, Json fileName) {
    EXPECT_EQ(item(index)["title"], title);
    EXPECT_EQ(item(index)["activities"], activities) << index;
    EXPECT_EQ(item(index)["text"], copied) << index;
    EXPECT_EQ(item(index)["fileName"], fileName) << index;
    EXPECT_EQ(item(index)["url"].is_string(), fileName.is_string()) << index;
  };
  check(0, "a text", Json::array({"copy"}), "a text", nullptr);
  check(1, "Dark.plist", Json::array({"copy", "save"}), nullptr, "Dark.plist");
  check(2, "Dark.bin", Json::array({"save"}), nullptr, "Dark.bin");
  check(3, "https://example.org/", Json::array({"copy"}), "https://example.org/", nullptr);
  EXPECT_EQ(item(4)["activities"], Json::array());
}

TEST_F(FileTransferTest, CopyingASharedItemEndsTheSheet) {
  share(@[ @"first", [NSURL fileURLWithPath:write(@"/var/Dark.plist", "<plist/>")] ]);
  EXPECT_EQ(tapPart(item(1), "copy"), 200);
  EXPECT_EQ(reply["sheet"], nullptr);
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] string], @"<plist/>");
  EXPECT_EQ(calls(list_), "CopyToPasteboard 1");
}

TEST_F(FileTransferTest, SavingASharedItemEndsTheSheet) {
  share(@[ [NSURL fileURLWithPath:write(@"/var/Dark.plist", "<plist/>")] ]);
  const std::string identifier = item(0).value("id", "");
  EXPECT_EQ(item(0)["url"], "/shared/" + identifier);
  EXPECT_EQ(shared(identifier), "<plist/>");
  EXPECT_EQ(tapPart(item(0), "save"), 200);
  EXPECT_EQ(reply["sheet"], nullptr);
  EXPECT_EQ(calls(list_), "SaveToFiles 1");
  EXPECT_EQ(shared(identifier), "404 Nothing on the screen shares this.");
}

TEST_F(FileTransferTest, ASharedPictureIsSavedUpright) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(6, 4), YES, 1);
  UIImage *stored = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  share(@[ [UIImage imageWithCGImage:[stored CGImage] scale:1 orientation:UIImageOrientationRight] ]);
  const std::string bytes = shared(item(0).value("id", ""));
  UIImage *saved = [UIImage imageWithData:[NSData dataWithBytes:bytes.data() length:bytes.size()]];
  EXPECT_TRUE(CGSizeEqualToSize([saved size], CGSizeMake(4, 6)));
}

TEST_F(FileTransferTest, WhatASharedItemCannotDoIsRefused) {
  UIActivityViewController *sheet = share(@[ @"text", [NSURL fileURLWithPath:write(@"/var/a.bin", "\xff")] ]);
  expectRefused({{"type", "tap"}, {"id", item(0)["id"]}}, 422);
  expectRefused({{"type", "tap"}, {"id", item(0)["id"]}, {"part", "save"}}, 422);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "copy"}}, 422);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "accessory"}}, 422);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "print"}}, 400);
  expectRefused({{"type", "tap"}, {"id", "item99.0"}, {"part", "copy"}}, 404);
  [sheet setExcludedActivityTypes:@[ UIActivityTypeCopyToPasteboard, SIMActivityTypeSaveToFiles ]];
  session().refresh();
  EXPECT_EQ(item(0)["activities"], Json::array());
  EXPECT_EQ(item(1)["url"], nullptr);
  expectRefused({{"type", "tap"}, {"id", item(0)["id"]}, {"part", "copy"}}, 422);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "save"}}, 422);
  EXPECT_EQ(calls(list_), "");
}

TEST_F(FileTransferTest, OnlyWhatTheSheetSharesIsGiven) {
  NSURL *vanishing = [NSURL fileURLWithPath:write(@"/var/Gone.plist", "x")];
  EXPECT_EQ(shared("item1.0"), "404 Nothing on the screen shares this.");
  share(@[ @"text", vanishing ]);
  const std::string text = item(0).value("id", "");
  const std::string file = item(1).value("id", "");
  for (const std::string &other : {text, std::string("row1.0.0"), std::string(""), std::string("../x"), file + "0"}) {
    EXPECT_EQ(shared(other), "404 Nothing on the screen shares this.") << other;
  }
  [[NSFileManager defaultManager] removeItemAtPath:[vanishing path] error:NULL];
  EXPECT_EQ(shared(file), "422 “Gone.plist” cannot be read.");
}

TEST_F(FileTransferTest, ARowSharesNothing) {
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "save"}}, 422);
  EXPECT_EQ(calls(list_), "");
}

}  // namespace
