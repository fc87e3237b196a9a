// Share sheets over the automation interface: what can be copied, what saved.
#import <UIKit/UIActivityViewController+Sim.h>
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class ShareSheetTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    list_ = startList(@[ @[ @"a" ] ]);
  }

  UIActivityViewController *share(NSArray *items) {
    UIActivityViewController *sheet = [[[UIActivityViewController alloc] initWithActivityItems:items
                                                                         applicationActivities:nil] autorelease];
    const auto note = objcxx::share(list_->calls.get());
    [sheet setCompletionWithItemsHandler:^(UIActivityType type, BOOL completed, NSArray *, NSError *) {
      [note.get() addObject:[NSString stringWithFormat:@"%@ %d", [type pathExtension], completed ? 1 : 0]];
    }];
    present(list_, sheet);
    return sheet;
  }
  Json item(std::size_t index) { return screen()["sheet"]["items"][index]; }
  Outcome tapPart(const Json &item, const char *part) {
    return send({{"type", "tap"}, {"id", item["id"]}, {"part", part}});
  }
  /// The bytes of a shared item, or "OUTCOME: sentence".
  std::string shared(const std::string &identifier) {
    const sim::wire::Reply answer = session().perform(sim::wire::Shared{identifier});
    return answer.outcome == Outcome::done ? answer.content
                                           : std::string(nameOf(answer.outcome)) + ": " + answer.content;
  }

  ListPage *list_ = nil;  // Not owned.
};

TEST_F(ShareSheetTest, SharedItemsTellWhatCanBeDoneWithThem) {
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

TEST_F(ShareSheetTest, CopyingASharedItemEndsTheSheet) {
  share(@[ @"first", [NSURL fileURLWithPath:write(@"/var/Dark.plist", "<plist/>")] ]);
  EXPECT_EQ(tapPart(item(1), "copy"), Outcome::done);
  EXPECT_EQ(reply["sheet"], nullptr);
  EXPECT_OBJC_EQ([[UIPasteboard generalPasteboard] string], @"<plist/>");
  EXPECT_EQ(calls(list_), "CopyToPasteboard 1");
}

TEST_F(ShareSheetTest, SavingASharedItemEndsTheSheet) {
  share(@[ [NSURL fileURLWithPath:write(@"/var/Dark.plist", "<plist/>")] ]);
  const std::string identifier = item(0).value("id", "");
  EXPECT_EQ(item(0)["url"], "/shared/" + identifier);
  EXPECT_EQ(shared(identifier), "<plist/>");
  EXPECT_EQ(tapPart(item(0), "save"), Outcome::done);
  EXPECT_EQ(reply["sheet"], nullptr);
  EXPECT_EQ(calls(list_), "SaveToFiles 1");
  EXPECT_EQ(shared(identifier), "unknown: Nothing on the screen shares this.");
}

TEST_F(ShareSheetTest, ASharedPictureIsSavedUpright) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(6, 4), YES, 1);
  UIImage *stored = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  share(@[ [UIImage imageWithCGImage:[stored CGImage] scale:1 orientation:UIImageOrientationRight] ]);
  const std::string bytes = shared(item(0).value("id", ""));
  UIImage *saved = [UIImage imageWithData:[NSData dataWithBytes:bytes.data() length:bytes.size()]];
  EXPECT_TRUE(CGSizeEqualToSize([saved size], CGSizeMake(4, 6)));
}

TEST_F(ShareSheetTest, WhatASharedItemCannotDoIsRefused) {
  UIActivityViewController *sheet = share(@[ @"text", [NSURL fileURLWithPath:write(@"/var/a.bin", "\xff")] ]);
  expectRefused({{"type", "tap"}, {"id", item(0)["id"]}}, Outcome::refused);
  expectRefused({{"type", "tap"}, {"id", item(0)["id"]}, {"part", "save"}}, Outcome::refused);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "copy"}}, Outcome::refused);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "accessory"}}, Outcome::refused);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "print"}}, Outcome::malformed);
  expectRefused({{"type", "tap"}, {"id", "item99.0"}, {"part", "copy"}}, Outcome::unknown);
  std::string other = item(1)["id"];
  expectRefused({{"type", "tap"}, {"id", "action" + other.substr(4)}, {"part", "save"}}, Outcome::unknown);
  other.back() = '2';
  expectRefused({{"type", "tap"}, {"id", other}, {"part", "copy"}}, Outcome::unknown);
  [sheet setExcludedActivityTypes:@[ UIActivityTypeCopyToPasteboard, SIMActivityTypeSaveToFiles ]];
  session().refresh();
  EXPECT_EQ(item(0)["activities"], Json::array());
  EXPECT_EQ(item(0)["text"], nullptr);
  EXPECT_EQ(item(1)["url"], nullptr);
  expectRefused({{"type", "tap"}, {"id", item(0)["id"]}, {"part", "copy"}}, Outcome::refused);
  expectRefused({{"type", "tap"}, {"id", item(1)["id"]}, {"part", "save"}}, Outcome::refused);
  EXPECT_EQ(calls(list_), "");
}

TEST_F(ShareSheetTest, OnlyWhatTheSheetSharesIsGiven) {
  NSURL *vanishing = [NSURL fileURLWithPath:write(@"/var/Gone.plist", "x")];
  EXPECT_EQ(shared("item1.0"), "unknown: Nothing on the screen shares this.");
  share(@[ @"text", vanishing ]);
  const std::string text = item(0).value("id", "");
  const std::string file = item(1).value("id", "");
  for (const std::string &other : {text, std::string("row1.0.0"), std::string(""), std::string("../x"), file + "0"}) {
    EXPECT_EQ(shared(other), "unknown: Nothing on the screen shares this.") << other;
  }
  [[NSFileManager defaultManager] removeItemAtPath:[vanishing path] error:NULL];
  EXPECT_EQ(shared(file), "refused: “Gone.plist” cannot be read.");
}

TEST_F(ShareSheetTest, ARowSharesNothing) {
  expectRefused({{"type", "tap"}, {"id", rowId(0, 0)}, {"part", "save"}}, Outcome::refused);
  EXPECT_EQ(calls(list_), "");
}

TEST_F(ShareSheetTest, ClosingTheSheetSharesNothing) {
  share(@[ @"text" ]);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_EQ(reply["sheet"], nullptr);
  EXPECT_EQ(calls(list_), "(null) 0");
}

}  // namespace
