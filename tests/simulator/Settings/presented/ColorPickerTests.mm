// The colour picker over the automation interface.
#import <UIKit/UIKit.h>

#include "simulator/Settings/SessionTest.h"

/// Notes what a colour picker tells.
@interface ColorNotes : NSObject <UIColorPickerViewControllerDelegate> {
 @public
  std::vector<std::string> notes;
}
@end

@implementation ColorNotes
- (void)colorPickerViewController:(UIColorPickerViewController *)picker
                   didSelectColor:(UIColor *)color
                     continuously:(BOOL)continuously {
  notes.push_back(continuously ? "dragged" : "chose");
}
- (void)colorPickerViewControllerDidFinish:(UIColorPickerViewController *)picker {
  notes.push_back("finished");
}
@end

namespace {

class ColorPickerTest : public SessionTest {
 protected:
  UIColorPickerViewController *present() {
    page_ = startList(@[ @[ @"a" ] ]);
    UIColorPickerViewController *picker = [[[UIColorPickerViewController alloc] init] autorelease];
    [picker setDelegate:notes_.get()];
    [page_ presentViewController:picker animated:YES completion:nil];
    session().refresh();
    return picker;
  }
  Json color() const { return screen()["sheet"]["color"]; }
  Json setEvent(const Json &value) const { return {{"type", "set"}, {"id", color()["id"]}, {"value", value}}; }
  std::vector<std::string> &notes() { return notes_.get()->notes; }

  ListPage *page_ = nil;

 private:
  objcxx::Retained<ColorNotes> notes_ = objcxx::adopt([[ColorNotes alloc] init]);
};

using Notes = std::vector<std::string>;

TEST_F(ColorPickerTest, TheSheetHasTheColour) {
  UIColorPickerViewController *picker = present();
  EXPECT_EQ(screen()["sheet"]["kind"], "color");
  EXPECT_EQ(screen()["sheet"]["title"], "Colors");
  EXPECT_EQ(screen()["sheet"]["items"], Json::array());
  EXPECT_EQ(color()["value"], "#000000ff");
  EXPECT_EQ(color()["supportsAlpha"], true);
  [picker setTitle:@"Titles"];
  [picker setSupportsAlpha:NO];
  [picker setSelectedColor:[UIColor colorWithRed:1 green:0.5 blue:0 alpha:0.2]];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["title"], "Titles");
  EXPECT_EQ(color()["value"], "#ff800033");
  EXPECT_EQ(color()["supportsAlpha"], false);
}

TEST_F(ColorPickerTest, AColourThatFollowsTheAppearanceIsShownAsItIsNow) {
  UIColorPickerViewController *picker = present();
  [picker setSelectedColor:[UIColor labelColor]];
  session().setDark(true);
  session().refresh();
  EXPECT_EQ(color()["value"], "#ffffffff");
  session().setDark(false);
  session().refresh();
  EXPECT_EQ(color()["value"], "#000000ff");
}

TEST_F(ColorPickerTest, OtherSheetsHaveNone) {
  startList(@[ @[ @"a" ] ]);
  PlainPage *plain = [[[PlainPage alloc] init] autorelease];
  UIViewController *root = [[[UIApplication sharedApplication] keyWindow] rootViewController];
  [root presentViewController:plain animated:NO completion:nil];
  session().refresh();
  ASSERT_EQ(screen()["sheet"]["kind"], "page");
  EXPECT_FALSE(screen()["sheet"].contains("color"));
}

TEST_F(ColorPickerTest, AColourIsDraggedAndChosen) {
  present();
  Json drag = setEvent("#00ff0080");
  drag["finished"] = false;
  EXPECT_EQ(send(drag), Outcome::done);
  EXPECT_EQ(color()["value"], "#00ff0080");
  drag["finished"] = true;
  EXPECT_EQ(send(drag), Outcome::done);
  EXPECT_EQ(send(setEvent("#ABCDEF")), Outcome::done);
  EXPECT_EQ(color()["value"], "#abcdefff");
  EXPECT_EQ(notes(), (Notes{"dragged", "chose", "chose"}));
}

TEST_F(ColorPickerTest, WhatIsNoColourIsRefused) {
  UIColorPickerViewController *picker = present();
  for (const Json &value : {Json(nullptr),
                            Json(true),
                            Json(7),
                            Json(""),
                            Json("#"),
                            Json("red"),
                            Json("ff0000"),
                            Json("xff0000"),
                            Json("0ff0000ff"),
                            Json("#ff000"),
                            Json("#ff00000"),
                            Json("#ff0000fff"),
                            Json("#gg0000"),
                            Json("#-10000"),
                            Json("#+10000"),
                            Json("# 10000"),
                            Json("#ff00 0"),
                            Json("#ff00é"),
                            Json::array({255, 0, 0}),
                            Json::object({{"light", "#ff0000"}})}) {
    expectRefused(setEvent(value), Outcome::refused);
  }
  Json event = setEvent("#ff0000");
  event["finished"] = "yes";
  expectRefused(event, Outcome::malformed);
  event.erase("finished");
  event.erase("value");
  expectRefused(event, Outcome::malformed);
  [picker setSupportsAlpha:NO];
  session().refresh();
  expectRefused(setEvent("#ff0000fe"), Outcome::refused);
  EXPECT_EQ(notes(), Notes{});
  EXPECT_EQ(send(setEvent("#ff0000ff")), Outcome::done);
}

TEST_F(ColorPickerTest, OnlyThePickerOnTheScreenTakesColours) {
  present();
  const Json event = setEvent("#ff0000");
  for (const char *type : {"tap", "swipe", "paste"})
    expectRefused({{"type", type}, {"id", event["id"]}}, Outcome::unknown);
  expectRefused({{"type", "set"}, {"id", "color999"}, {"value", "#ff0000"}}, Outcome::unknown);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "#ff0000"}}, Outcome::unknown);
  const std::string item = "item" + event["id"].get<std::string>().substr(5) + ".0";
  expectRefused({{"type", "set"}, {"id", item}, {"value", "#ff0000"}}, Outcome::unknown);
  expectRefused({{"type", "pick"}, {"path", "#ff0000"}}, Outcome::refused);
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"x"
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  [alert addAction:[UIAlertAction actionWithTitle:@"OK" style:UIAlertActionStyleCancel handler:nil]];
  [[page_ presentedViewController] presentViewController:alert animated:NO completion:nil];
  session().refresh();
  expectRefused(event, Outcome::unknown);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_EQ(send(setEvent("#ff0000")), Outcome::done);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_EQ(notes(), (Notes{"chose", "finished"}));
  EXPECT_TRUE(screen()["sheet"].is_null());
  expectRefused(event, Outcome::unknown);
}

}  // namespace
