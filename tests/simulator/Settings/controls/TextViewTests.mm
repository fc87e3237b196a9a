// A text view in a row: its look, its value, entering and pasting a text.
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class TextViewTest : public SessionTest {
 protected:
  UITextView *view() { return view_.get(); }

 private:
  objcxx::Retained<UITextView> view_ = objcxx::adopt([[UITextView alloc] initWithFrame:CGRectMake(0, 0, 100, 60)]);
};

TEST_F(TextViewTest, AViewHasItsKeyboardColourAndAlignment) {
  [view() setKeyboardType:UIKeyboardTypeEmailAddress];
  [view() setAutocapitalizationType:UITextAutocapitalizationTypeNone];
  [view() setAutocorrectionType:UITextAutocorrectionTypeYes];
  [view() setReturnKeyType:UIReturnKeySend];
  [view() setTextColor:[UIColor redColor]];
  [view() setTextAlignment:NSTextAlignmentCenter];
  EXPECT_EQ(controlOf(view()), Json({{"type", "textView"},
                                     {"keyboard", "email"},
                                     {"autocapitalization", "none"},
                                     {"autocorrection", true},
                                     {"spellChecking", nullptr},
                                     {"returnKey", "send"},
                                     {"textColor", "#ff0000ff"},
                                     {"ownTextColor", true},
                                     {"alignment", "center"},
                                     {"fontSize", 12},
                                     {"fontWeight", 400},
                                     {"fontFamily", "Inter"},
                                     {"italic", false},
                                     {"tabularDigits", false},
                                     {"editable", true},
                                     {"attributedText", nullptr}}));
}

TEST_F(TextViewTest, AViewTakesAnyText) {
  startControl(view());
  EXPECT_EQ(row(0, 0)["value"], "");
  for (const Json &wrong : {Json(2), Json(true), Json()}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, Outcome::refused);
  }
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "x"}, {"finished", false}}, Outcome::refused);
  EXPECT_EQ(set(rowId(0, 0), "one\ntwo"), Outcome::done);
  EXPECT_OBJC_EQ([view() text], @"one\ntwo");
  EXPECT_EQ(row(0, 0)["value"], "one\ntwo");
  EXPECT_EQ(set(rowId(0, 0), std::string(65'537, 'x')), Outcome::done);
  EXPECT_EQ(row(0, 0)["valueLength"], 65'537);
}

TEST_F(TextViewTest, AViewTakesThePasteboard) {
  startControl(view());
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:nil];
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "The pasteboard is empty.");
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"two"];
  EXPECT_EQ(set(rowId(0, 0), "one "), Outcome::done);
  EXPECT_EQ(send({{"type", "paste"}, {"id", rowId(0, 0)}}), Outcome::done);
  EXPECT_OBJC_EQ([view() text], @"one two");
}

TEST_F(TextViewTest, AViewThatIsReadOnlyIsLeftAlone) {
  [view() setEditable:NO];
  startControl(view());
  EXPECT_EQ(row(0, 0)["control"]["editable"], false);
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"x"];
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "x"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
}

TEST_F(TextViewTest, LinesOfATextWithAttributesAreAsWideAsTheViewLeavesThem) {
  [view() setTextAlignment:NSTextAlignmentRight];
  [view() setAttributedText:[[[NSAttributedString alloc] initWithString:@"ab cd ef gh ij kl mn op"] autorelease]];
  const Json lines = controlOf(view())["attributedText"]["lines"];
  EXPECT_GT(lines.size(), 1u);
  EXPECT_LT(lines.size(), 6u) << "more than a word fits in a line";
}

}  // namespace
