// A text field in a row: its look, its value, entering and pasting a text.
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

/// Does not let its field be cleared.
@interface TextKeeper : NSObject <UITextFieldDelegate>
@end

@implementation TextKeeper
- (BOOL)textFieldShouldClear:(UITextField *)textField {
  return NO;
}
@end

namespace {

class TextFieldTest : public SessionTest {
 protected:
  /// A field in a row, that says in `calls` of the page when a text was entered in it and when its return key was
  /// pressed.
  ControlPage *startField(UITextField *field) {
    ControlPage *page = startControl(field);
    [field addTarget:page action:@selector(changed:) forControlEvents:UIControlEventEditingChanged];
    [field addTarget:page action:@selector(pushNext) forControlEvents:UIControlEventEditingDidEndOnExit];
    return page;
  }
};

TEST_F(TextFieldTest, aFieldHasItsKeyboardColourAlignmentAndSideViews) {
  const auto field = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 60, 30)]);
  [field.get() setAutocapitalizationType:UITextAutocapitalizationTypeWords];
  [field.get() setAutocorrectionType:UITextAutocorrectionTypeNo];
  [field.get() setSpellCheckingType:UITextSpellCheckingTypeYes];
  [field.get() setReturnKeyType:UIReturnKeySearch];
  [field.get() setTextColor:[UIColor redColor]];
  [field.get() setTextAlignment:NSTextAlignmentRight];
  [field.get() setBorderStyle:UITextBorderStyleRoundedRect];
  [field.get() setLeftView:view(10, 12).get()];
  [field.get() setRightView:view(14, 12).get()];
  [field.get() setRightViewMode:UITextFieldViewModeAlways];
  const Json described = controlOf(field.get());
  EXPECT_EQ(described["autocapitalization"], "words");
  EXPECT_EQ(described["autocorrection"], false);
  EXPECT_EQ(described["spellChecking"], true);
  EXPECT_EQ(described["returnKey"], "search");
  EXPECT_EQ(described["textColor"], "#ff0000ff");
  EXPECT_EQ(described["alignment"], "right");
  EXPECT_EQ(described["border"], "roundedRect");
  EXPECT_TRUE(described["leftView"].is_null()) << "its mode is never";
  EXPECT_EQ(described["rightView"]["frame"][2], 14);
  [field.get() setLeftViewMode:UITextFieldViewModeUnlessEditing];
  EXPECT_EQ(controlOf(field.get())["leftView"]["frame"][2], 10);
  [field.get() setLeftViewMode:UITextFieldViewModeWhileEditing];
  EXPECT_TRUE(controlOf(field.get())["leftView"].is_null()) << "nobody edits it";
}

TEST_F(TextFieldTest, BordersKeysAndCapitalsHaveNames) {
  const auto field = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 60, 30)]);
  const std::pair<UITextBorderStyle, const char *> borders[] = {{UITextBorderStyleNone, "none"},
                                                                {UITextBorderStyleLine, "line"},
                                                                {UITextBorderStyleBezel, "bezel"},
                                                                {UITextBorderStyleRoundedRect, "roundedRect"}};
  for (const auto &[style, name] : borders) {
    [field.get() setBorderStyle:style];
    EXPECT_EQ(controlOf(field.get())["border"], name);
  }
  const std::pair<UIReturnKeyType, const char *> keys[] = {
      {UIReturnKeyDefault, "return"}, {UIReturnKeyGo, "go"},     {UIReturnKeyNext, "next"},
      {UIReturnKeySearch, "search"},  {UIReturnKeySend, "send"}, {UIReturnKeyDone, "done"},
      {UIReturnKeyJoin, "return"}};
  for (const auto &[type, name] : keys) {
    [field.get() setReturnKeyType:type];
    EXPECT_EQ(controlOf(field.get())["returnKey"], name);
  }
  const std::pair<UITextAutocapitalizationType, const char *> capitals[] = {
      {UITextAutocapitalizationTypeNone, "none"},
      {UITextAutocapitalizationTypeWords, "words"},
      {UITextAutocapitalizationTypeSentences, "sentences"},
      {UITextAutocapitalizationTypeAllCharacters, "characters"}};
  for (const auto &[type, name] : capitals) {
    [field.get() setAutocapitalizationType:type];
    EXPECT_EQ(controlOf(field.get())["autocapitalization"], name);
  }
}

TEST_F(TextFieldTest, APlaceholderHasTheLookOfItsAttributes) {
  const auto field = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 60, 30)]);
  EXPECT_TRUE(controlOf(field.get())["placeholderLook"].is_null());
  const auto place = [&](NSString *text, NSDictionary *attributes) {
    [field.get() setAttributedPlaceholder:[[[NSAttributedString alloc] initWithString:text
                                                                           attributes:attributes] autorelease]];
    return controlOf(field.get())["placeholderLook"];
  };
  const Json look = place(@"Name", @{NSFontAttributeName : [UIFont boldSystemFontOfSize:21]});
  EXPECT_TRUE(look["color"].is_null());
  EXPECT_EQ(look["fontSize"], 21);
  EXPECT_EQ(look["fontWeight"], 600);
  EXPECT_TRUE(place(@"", @{}).is_null());
}

TEST_F(TextFieldTest, aFieldMakesItsTextFitDownToItsLeastSize) {
  const auto field = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 60, 30)]);
  [field.get() setText:@"A text that needs more than sixty points"];
  EXPECT_EQ(controlOf(field.get())["fontSize"], 17);
  [field.get() setAdjustsFontSizeToFitWidth:YES];
  [field.get() setMinimumFontSize:9];
  EXPECT_EQ(controlOf(field.get())["fontSize"], 9);
  [field.get() setMinimumFontSize:30];
  EXPECT_EQ(controlOf(field.get())["fontSize"], 17) << "it never grows";
  [field.get() setMinimumFontSize:1];
  [field.get() setText:@"A little long"];
  const double little = controlOf(field.get())["fontSize"];
  EXPECT_GT(little, 8);
  EXPECT_LT(little, 17);
  EXPECT_LE([[field.get() text] sizeWithAttributes:@{NSFontAttributeName : [UIFont systemFontOfSize:little]}].width,
            61);
  [field.get() setText:@"fits"];
  EXPECT_EQ(controlOf(field.get())["fontSize"], 17);
  const auto narrow = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectZero]);
  [narrow.get() setText:@"no room yet"];
  [narrow.get() setAdjustsFontSizeToFitWidth:YES];
  EXPECT_EQ(controlOf(narrow.get())["fontSize"], 17);
}

TEST_F(TextFieldTest, TextFieldsTakeAnyText) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  startControl(control);
  for (const Json &wrong : {Json(2), Json(true), Json()}) {
    expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", wrong}}, Outcome::refused);
  }
  for (const std::string &text : {std::string("plain"), std::string("\"\\\t\x01"), std::string("a\0b", 3),
                                  std::string("\xf0\x9f\x98\x80"), std::string(300000, 'x'), std::string()}) {
    EXPECT_EQ(set(rowId(0, 0), text), Outcome::done);
    EXPECT_EQ([[control text] lengthOfBytesUsingEncoding:NSUTF8StringEncoding], text.size());
    EXPECT_TRUE(row(0, 0)["value"] == text.substr(0, 65'536));
  }
  EXPECT_FALSE(row(0, 0).contains("valueLength"));
}

TEST_F(TextFieldTest, TheReturnKeyReachesTheField) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  ControlPage *page = startField(control);
  const std::string id = rowId(0, 0);
  EXPECT_EQ(set(id, "first"), Outcome::done);
  EXPECT_EQ(send({{"type", "set"}, {"id", id}, {"value", "second"}, {"return", false}}), Outcome::done);
  EXPECT_EQ(labels(), " row ") << "the field was left without the key";
  EXPECT_EQ(send({{"type", "set"}, {"id", id}, {"value", "third"}, {"return", true}}), Outcome::done);
  EXPECT_OBJC_EQ([control text], @"third");
  EXPECT_EQ(labels(), " deep ") << "what the key does";
  EXPECT_EQ(calls(page), "changed,changed,changed");
}

TEST_F(TextFieldTest, TheReturnKeyAloneChangesNoText) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  [control setText:@"old"];
  ControlPage *page = startField(control);
  EXPECT_EQ(send({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "old"}, {"return", true}}), Outcome::done);
  EXPECT_EQ(labels(), " deep ");
  EXPECT_EQ(calls(page), "");
}

TEST_F(TextFieldTest, TheReturnKeyIsPressedOnATextInAFieldThatIsEnabled) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  startField(control);
  const std::string id = rowId(0, 0);
  expectRefused({{"type", "set"}, {"id", id}, {"value", 2}, {"return", true}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "A text field is set to a text.");
  expectRefused({{"type", "set"}, {"id", id}, {"value", "x"}, {"return", 1}}, Outcome::malformed);
  expectRefused({{"type", "set"}, {"id", id}, {"value", "x"}, {"return", true}, {"finished", false}},
                Outcome::malformed);
  [control setEnabled:NO];
  session().refresh();
  expectRefused({{"type", "set"}, {"id", id}, {"value", "x"}, {"return", true}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
  EXPECT_EQ(labels(), " row ");
}

TEST_F(TextFieldTest, AFieldTakesThePasteboard) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  startControl(control);
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"two"];
  EXPECT_EQ(set(rowId(0, 0), "one "), Outcome::done);
  EXPECT_EQ(send({{"type", "paste"}, {"id", rowId(0, 0)}}), Outcome::done);
  EXPECT_OBJC_EQ([control text], @"one two");
  [control setEnabled:NO];
  session().refresh();
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, Outcome::refused);
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", "x"}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
}

TEST_F(TextFieldTest, TheClearButtonAsksTheDelegate) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  const auto keeper = objcxx::adopt([[TextKeeper alloc] init]);
  [control setText:@"one"];
  startControl(control);
  const std::string field = rowId(0, 0);
  EXPECT_EQ(row(0, 0)["control"]["clearButtonMode"], "never");
  EXPECT_EQ(row(0, 0)["control"]["clearButton"], false);
  expectRefused({{"type", "clear"}, {"id", field}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "The text cannot be cleared.");
  const std::pair<UITextFieldViewMode, const char *> names[] = {{UITextFieldViewModeWhileEditing, "whileEditing"},
                                                                {UITextFieldViewModeUnlessEditing, "unlessEditing"},
                                                                {UITextFieldViewModeAlways, "always"}};
  for (const auto &[mode, name] : names) {
    [control setText:@"one"];
    [control setClearButtonMode:mode];
    session().refresh();
    EXPECT_EQ(row(0, 0)["control"]["clearButtonMode"], name);
    EXPECT_EQ(row(0, 0)["control"]["clearButton"], true);
    EXPECT_EQ(send({{"type", "clear"}, {"id", field}}), Outcome::done);
    EXPECT_EQ(row(0, 0)["value"], "");
  }
  [control setDelegate:keeper.get()];
  [control setText:@"kept"];
  session().refresh();
  expectRefused({{"type", "clear"}, {"id", field}}, Outcome::refused);
  EXPECT_EQ(row(0, 0)["value"], "kept");
  [control setDelegate:nil];
  expectRefused({{"type", "clear"}, {"id", field + "00"}}, Outcome::unknown);
}

TEST_F(TextFieldTest, OnlyFieldsAreCleared) {
  UISwitch *control = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  startControl(control);
  expectRefused({{"type", "clear"}, {"id", rowId(0, 0)}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "Only a text field has a clear button.");
}

TEST_F(TextFieldTest, ASecretFieldIsOfATypeOfItsOwn) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  [control setPlaceholder:@"Password"];
  EXPECT_EQ(controlOf(control)["type"], "text");
  [control setSecureTextEntry:YES];
  [control setClearButtonMode:UITextFieldViewModeAlways];
  EXPECT_EQ(controlOf(control)["type"], "secureText");
  EXPECT_EQ(row(0, 0)["control"]["placeholder"], "Password");
  EXPECT_EQ(row(0, 0)["control"]["clearButton"], true);
}

TEST_F(TextFieldTest, TheKeyboardsHaveNames) {
  UITextField *control = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 100, 30)] autorelease];
  const std::pair<UIKeyboardType, const char *> names[] = {
      {UIKeyboardTypeDefault, "text"},
      {UIKeyboardTypeNumberPad, "numeric"},
      {UIKeyboardTypeNumbersAndPunctuation, "numeric"},
      {UIKeyboardTypeDecimalPad, "decimal"},
      {UIKeyboardTypePhonePad, "tel"},
      {UIKeyboardTypeURL, "url"},
      {UIKeyboardTypeEmailAddress, "email"},
  };
  for (const auto &[type, name] : names) {
    [control setKeyboardType:type];
    EXPECT_EQ(controlOf(control)["keyboard"], name);
  }
}

}  // namespace
