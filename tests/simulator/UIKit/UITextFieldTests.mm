#import <UIKit/UIKit.h>
#import <UIKit/UIResponder+Sim.h>
#import <UIKit/UITextField+Sim.h>
#import <UIKit/UITextView+Sim.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <set>
#include <string>
#include <utility>

// Writes down what it is asked and told; refuses what is in `_refused`.
@interface TextDelegate : NSObject <UITextFieldDelegate, UITextViewDelegate> {
 @public
  std::string _log;
  std::set<std::string> _refused;
}
@end

@implementation TextDelegate

- (BOOL)answer:(const char *)question {
  _log += std::string(question) + " ";
  return !_refused.count(question);
}

- (BOOL)textFieldShouldBeginEditing:(UITextField *)field {
  (void)field;
  return [self answer:"shouldBegin"];
}

- (void)textFieldDidBeginEditing:(UITextField *)field {
  _log += [field isEditing] ? "didBegin " : "wrong ";
}

- (BOOL)textFieldShouldEndEditing:(UITextField *)field {
  (void)field;
  return [self answer:"shouldEnd"];
}

- (void)textFieldDidEndEditing:(UITextField *)field {
  _log += [field isEditing] ? "wrong " : "didEnd ";
}

- (BOOL)textField:(UITextField *)field
    shouldChangeCharactersInRange:(NSRange)range
                replacementString:(NSString *)string {
  _log += std::to_string(range.location) + "+" + std::to_string(range.length) + ":" + [string UTF8String] + " ";
  (void)field;
  return !_refused.count("change");
}

- (BOOL)textFieldShouldClear:(UITextField *)field {
  (void)field;
  return [self answer:"shouldClear"];
}

- (BOOL)textFieldShouldReturn:(UITextField *)field {
  (void)field;
  return [self answer:"shouldReturn"];
}

- (BOOL)textViewShouldBeginEditing:(UITextView *)view {
  (void)view;
  return [self answer:"shouldBegin"];
}

- (void)textViewDidBeginEditing:(UITextView *)view {
  (void)view;
  _log += "didBegin ";
}

- (BOOL)textViewShouldEndEditing:(UITextView *)view {
  (void)view;
  return [self answer:"shouldEnd"];
}

- (void)textViewDidEndEditing:(UITextView *)view {
  (void)view;
  _log += "didEnd ";
}

- (BOOL)textView:(UITextView *)view shouldChangeTextInRange:(NSRange)range replacementText:(NSString *)text {
  (void)view, (void)range, (void)text;
  return [self answer:"change"];
}

- (void)textViewDidChange:(UITextView *)view {
  (void)view;
  _log += "didChange ";
}

- (void)began:(id)sender {
  (void)sender;
  _log += "[began] ";
}

- (void)changed:(id)sender {
  (void)sender;
  _log += "[changed] ";
}

- (void)ended:(id)sender {
  (void)sender;
  _log += "[ended] ";
}

- (void)exited:(id)sender {
  (void)sender;
  _log += "[exited] ";
}

@end

namespace {

class TextTest : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    delegate_ = [[TextDelegate alloc] init];
  }
  void TearDown() override {
    [SIMFirstResponder() resignFirstResponder];
    [delegate_ release];
    ObjCTest::TearDown();
  }
  std::string taken() { return std::exchange(delegate_->_log, {}); }

  TextDelegate *delegate_ = nil;
};

class UITextFieldTests : public TextTest {
 protected:
  UITextField *field() {
    UITextField *made = [[[UITextField alloc] initWithFrame:CGRectMake(0, 0, 200, 30)] autorelease];
    [made setDelegate:delegate_];
    [made addTarget:delegate_ action:@selector(began:) forControlEvents:UIControlEventEditingDidBegin];
    [made addTarget:delegate_ action:@selector(changed:) forControlEvents:UIControlEventEditingChanged];
    [made addTarget:delegate_ action:@selector(ended:) forControlEvents:UIControlEventEditingDidEnd];
    [made addTarget:delegate_ action:@selector(exited:) forControlEvents:UIControlEventEditingDidEndOnExit];
    return made;
  }
};

TEST_F(UITextFieldTests, StartsEmpty) {
  UITextField *plain = [[[UITextField alloc] init] autorelease];
  EXPECT_OBJC_EQ([plain text], @"");
  [plain setText:@"x"];
  [plain setText:nil];
  EXPECT_OBJC_EQ([plain text], @"");
  EXPECT_OBJC_EQ([plain placeholder], nil);
  EXPECT_EQ([plain clearButtonMode], UITextFieldViewModeNever);
  EXPECT_EQ([plain autocapitalizationType], UITextAutocapitalizationTypeSentences);
  EXPECT_FALSE([plain isSecureTextEntry]);
  EXPECT_FALSE([plain isEditing]);
}

TEST_F(UITextFieldTests, SettingTextTellsNobody) {
  [field() setText:@"quiet"];
  EXPECT_EQ(taken(), "");
}

TEST_F(UITextFieldTests, APersonTypesAndLeaves) {
  UITextField *name = field();
  [name setText:@"old"];
  EXPECT_TRUE([name sim_enterText:@"new text"]);
  EXPECT_OBJC_EQ([name text], @"new text");
  EXPECT_EQ(taken(), "shouldBegin [began] didBegin 0+3:new text [changed] shouldEnd [ended] didEnd ");
  EXPECT_FALSE([name isFirstResponder]);
}

TEST_F(UITextFieldTests, APersonPastesAtTheEndOfTheText) {
  UITextField *name = field();
  [name setText:@"old "];
  [[UIPasteboard generalPasteboard] setString:nil];
  EXPECT_FALSE([name sim_pasteByUser]);
  EXPECT_EQ(taken(), "");
  [[UIPasteboard generalPasteboard] setString:@"a\nb"];
  EXPECT_TRUE([name sim_pasteByUser]);
  EXPECT_OBJC_EQ([name text], @"old a b");
  EXPECT_EQ(taken(), "shouldBegin [began] didBegin 4+0:a b [changed] shouldEnd [ended] didEnd ");
  delegate_->_refused = {"change"};
  EXPECT_TRUE([name sim_pasteByUser]);
  EXPECT_OBJC_EQ([name text], @"old a b");
}

TEST_F(UITextFieldTests, ReturnComesBeforeTheEnd) {
  EXPECT_TRUE([field() sim_enterTextAndReturn:@"x"]);
  EXPECT_EQ(taken(), "shouldBegin [began] didBegin 0+0:x [changed] shouldReturn [exited] shouldEnd [ended] didEnd ");
  delegate_->_refused = {"shouldReturn"};
  EXPECT_TRUE([field() sim_enterTextAndReturn:@"x"]);
  EXPECT_EQ(taken(), "shouldBegin [began] didBegin 0+0:x [changed] shouldReturn shouldEnd [ended] didEnd ");
}

TEST_F(UITextFieldTests, ReturnAloneTypesNothing) {
  UITextField *name = field();
  [name setText:@"old"];
  EXPECT_TRUE([name sim_enterTextAndReturn:@"old"]);
  EXPECT_EQ(taken(), "shouldBegin [began] didBegin shouldReturn [exited] shouldEnd [ended] didEnd ");
  EXPECT_OBJC_EQ([name text], @"old");
}

TEST_F(UITextFieldTests, TheDelegateRefuses) {
  UITextField *name = field();
  [name setText:@"old"];
  delegate_->_refused = {"shouldBegin"};
  EXPECT_FALSE([name sim_enterText:@"new"]);
  EXPECT_EQ(taken(), "shouldBegin ");
  EXPECT_OBJC_EQ([name text], @"old");
  delegate_->_refused = {"change"};
  EXPECT_TRUE([name sim_enterText:@"new"]);
  EXPECT_EQ(taken(), "shouldBegin [began] didBegin 0+3:new shouldEnd [ended] didEnd ");
  EXPECT_OBJC_EQ([name text], @"old");
  delegate_->_refused = {"shouldEnd"};
  EXPECT_TRUE([name sim_enterText:@"new"]);
  EXPECT_TRUE([name isFirstResponder]) << "the delegate keeps the person in the field";
  EXPECT_FALSE([field() becomeFirstResponder]) << "and out of every other";
  delegate_->_refused.clear();
}

TEST_F(UITextFieldTests, DisabledAndHiddenFieldsRefuse) {
  UITextField *name = field();
  [name setEnabled:NO];
  EXPECT_FALSE([name sim_enterText:@"x"]);
  EXPECT_FALSE([name becomeFirstResponder]);
  [name setEnabled:YES];
  [name setHidden:YES];
  EXPECT_FALSE([name sim_enterText:@"x"]);
  EXPECT_OBJC_EQ([name text], @"");
  EXPECT_EQ(taken(), "");
}

TEST_F(UITextFieldTests, OneLineOnly) {
  UITextField *name = field();
  [name sim_enterText:@"a\r\nb\nc"];
  EXPECT_OBJC_EQ([name text], @"a b c");
  [name sim_enterText:nil];
  EXPECT_OBJC_EQ([name text], @"");
}

TEST_F(UITextFieldTests, TheClearButton) {
  UITextField *name = field();
  [name setText:@"old"];
  EXPECT_FALSE([name sim_clearByUser]) << "not shown";
  [name setClearButtonMode:UITextFieldViewModeWhileEditing];
  delegate_->_refused = {"shouldClear"};
  EXPECT_FALSE([name sim_clearByUser]);
  EXPECT_OBJC_EQ([name text], @"old");
  delegate_->_refused.clear();
  taken();
  EXPECT_TRUE([name sim_clearByUser]);
  EXPECT_EQ(taken(), "shouldBegin [began] didBegin shouldClear [changed] shouldEnd [ended] didEnd ");
  EXPECT_OBJC_EQ([name text], @"");
  EXPECT_FALSE([name sim_clearByUser]) << "not shown without text";
}

TEST_F(UITextFieldTests, ClearsOnBeginEditing) {
  UITextField *name = field();
  [name setText:@"old"];
  [name setClearsOnBeginEditing:YES];
  [name becomeFirstResponder];
  EXPECT_OBJC_EQ([name text], @"");
}

TEST_F(UITextFieldTests, PostsItsNotifications) {
  UITextField *name = field();
  NSMutableArray *posted = [NSMutableArray array];
  NSNotificationCenter *center = [NSNotificationCenter defaultCenter];
  [center addObserver:posted selector:@selector(addObject:) name:nil object:name];
  [name sim_enterText:@"x"];
  [center removeObserver:posted];
  ASSERT_EQ([posted count], 3u);
  EXPECT_OBJC_EQ([[posted objectAtIndex:0] name], UITextFieldTextDidBeginEditingNotification);
  EXPECT_OBJC_EQ([[posted objectAtIndex:1] name], UITextFieldTextDidChangeNotification);
  EXPECT_OBJC_EQ([[posted objectAtIndex:2] name], UITextFieldTextDidEndEditingNotification);
}

TEST_F(UITextFieldTests, SideViewsAreSubviews) {
  UITextField *name = field();
  UIView *side = [[[UIView alloc] init] autorelease];
  [name setRightView:side];
  EXPECT_OBJC_EQ([side superview], name);
  [name setRightView:nil];
  EXPECT_OBJC_EQ([side superview], nil);
}

class UITextViewTests : public TextTest {
 protected:
  UITextView *textView() {
    UITextView *made = [[[UITextView alloc] initWithFrame:CGRectMake(0, 0, 200, 100)] autorelease];
    [made setDelegate:delegate_];
    return made;
  }
};

TEST_F(UITextViewTests, APersonTypesAndLeaves) {
  UITextView *view = textView();
  EXPECT_OBJC_EQ([view text], @"");
  EXPECT_TRUE([view sim_enterText:@"two\nlines"]);
  EXPECT_OBJC_EQ([view text], @"two\nlines");
  EXPECT_EQ(taken(), "shouldBegin didBegin change didChange shouldEnd didEnd ");
  [view setEditable:NO];
  EXPECT_FALSE([view sim_enterText:@"x"]);
  [view setEditable:YES];
  delegate_->_refused = {"change"};
  EXPECT_TRUE([view sim_enterText:@"x"]);
  EXPECT_OBJC_EQ([view text], @"two\nlines");
  delegate_->_refused = {"shouldBegin"};
  EXPECT_FALSE([view sim_enterText:@"x"]);
}

TEST_F(UITextViewTests, SelectionStaysWithinTheText) {
  UITextView *view = textView();
  [view setText:@"12345"];
  [view setSelectedRange:NSMakeRange(3, 100)];
  EXPECT_EQ([view selectedRange].length, 2u);
  [view setSelectedRange:NSMakeRange(NSNotFound, 1)];
  EXPECT_EQ([view selectedRange].location, 5u);
}

TEST_F(UITextViewTests, FitsItsText) {
  UITextView *view = textView();
  const CGFloat one = [view sizeThatFits:CGSizeMake(100, 0)].height;
  [view setText:@"a\nb\nc"];
  EXPECT_NEAR([view sizeThatFits:CGSizeMake(100, 0)].height - one, 2 * [[view font] lineHeight], 0.7);
}

class UIResponderTests : public TextTest {};

TEST_F(UIResponderTests, ThereIsOneFirstResponder) {
  UITextField *one = [[[UITextField alloc] init] autorelease];
  UITextField *other = [[[UITextField alloc] init] autorelease];
  EXPECT_TRUE([one becomeFirstResponder]);
  EXPECT_TRUE([one becomeFirstResponder]);
  EXPECT_EQ(SIMFirstResponder(), one);
  EXPECT_TRUE([other becomeFirstResponder]);
  EXPECT_FALSE([one isFirstResponder]);
  EXPECT_FALSE([one isEditing]);
  EXPECT_TRUE([other resignFirstResponder]);
  EXPECT_EQ(SIMFirstResponder(), nil);
  EXPECT_FALSE([[[[UIView alloc] init] autorelease] becomeFirstResponder]);
}

TEST_F(UIResponderTests, LeavesWithItsView) {
  UIView *root = [[[UIView alloc] init] autorelease];
  UIView *box = [[[UIView alloc] init] autorelease];
  UITextField *field = [[[UITextField alloc] init] autorelease];
  [root addSubview:box];
  [box addSubview:field];
  [field becomeFirstResponder];
  EXPECT_TRUE([root endEditing:NO]);
  EXPECT_FALSE([field isEditing]);
  [field becomeFirstResponder];
  [box removeFromSuperview];
  EXPECT_FALSE([field isFirstResponder]);
}

TEST_F(UIResponderTests, ADeadResponderIsNoResponder) {
  UITextField *field = [[UITextField alloc] init];
  [field becomeFirstResponder];
  [field release];
  drainPool();
  EXPECT_EQ(SIMFirstResponder(), nil);
}

}  // namespace
