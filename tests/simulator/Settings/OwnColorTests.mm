// Which colours of texts are their bundle's own: those that somebody but the system has set.
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UILabel+Sim.h>

#include "simulator/Settings/SessionTest.h"

/// A page whose only row a test fills in.
@interface ColouredRow : UITableViewController {
 @public
  void (^fill)(UITableViewCell *cell);
}
@end

@implementation ColouredRow

- (NSInteger)tableView:(UITableView *)table numberOfRowsInSection:(NSInteger)section {
  (void)table, (void)section;
  return 1;
}

- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  (void)table, (void)path;
  UITableViewCell *cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleValue1
                                                  reuseIdentifier:nil] autorelease];
  [[cell textLabel] setText:@"Row"];
  [[cell detailTextLabel] setText:@"Detail"];
  if (fill) fill(cell);
  return cell;
}

@end

/// A label that only one test has, as an appearance proxy stays for the whole process.
@interface ProxiedLabel : UILabel
@end

@implementation ProxiedLabel
@end

namespace {

class OwnColorTest : public SessionTest {
 protected:
  static objcxx::Retained<UILabel> label() {
    const auto made = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)]);
    [made.get() setText:@"Text"];
    return made;
  }

  /// What is told of `view`, or of the first view in it, as one among others.
  Json told(UIView *shown) {
    const auto around = view(300, 100);
    [around.get() addSubview:shown];
    return describedView(around.get())["views"][0];
  }

  Json titleOf(UIButton *button) {
    [button setFrame:CGRectMake(0, 0, 100, 30)];
    [button setTitle:@"Title" forState:UIControlStateNormal];
    return told(button)["views"][0];
  }

  Json rowFilledBy(void (^fill)(UITableViewCell *cell)) {
    const auto page = objcxx::adopt([[ColouredRow alloc] initWithStyle:UITableViewStyleGrouped]);
    page.get()->fill = fill;
    start(page.get());
    page.get()->fill = nil;
    return row(0, 0);
  }
};

TEST_F(OwnColorTest, aLabelHasTheSystemsColourUntilOneIsSet) {
  const auto made = label();
  EXPECT_EQ(told(made.get())["ownColor"], false);
  [made.get() setTextColor:[UIColor whiteColor]];
  EXPECT_EQ(told(made.get())["ownColor"], true);
  [made.get() setTextColor:nil];
  EXPECT_EQ(told(made.get())["ownColor"], false);
  const sim::SystemSets system;
  [made.get() setTextColor:[UIColor whiteColor]];
  EXPECT_EQ(told(made.get())["ownColor"], false);
}

TEST_F(OwnColorTest, aHighlightedLabelHasItsOwnColourForThat) {
  const auto made = label();
  [made.get() setHighlightedTextColor:[UIColor whiteColor]];
  EXPECT_EQ(told(made.get())["ownColor"], false);
  [made.get() setHighlighted:YES];
  EXPECT_EQ(told(made.get())["ownColor"], true);
  [made.get() setHighlightedTextColor:nil];
  EXPECT_EQ(told(made.get())["ownColor"], false);
  {
    const sim::SystemSets system;
    [made.get() setHighlightedTextColor:[UIColor whiteColor]];
  }
  EXPECT_EQ(told(made.get())["ownColor"], false);
  [made.get() setHighlightedTextColor:nil];
  [made.get() setTextColor:[UIColor redColor]];
  EXPECT_EQ(told(made.get())["ownColor"], true);
}

TEST_F(OwnColorTest, aColourOfAnAppearanceProxyIsTheBundles) {
  [[ProxiedLabel appearance] setTextColor:[UIColor whiteColor]];
  const auto made = objcxx::adopt([[ProxiedLabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)]);
  {
    const sim::SystemSets system;
    EXPECT_EQ(told(made.get())["color"], "#ffffffff");
  }
  EXPECT_EQ(told(made.get())["ownColor"], true);
}

TEST_F(OwnColorTest, theColoursInATextsAttributesAreItsBundles) {
  const auto made = label();
  const auto text = objcxx::adopt([[NSMutableAttributedString alloc] initWithString:@"plain coloured"]);
  [text.get() addAttribute:NSForegroundColorAttributeName value:[UIColor whiteColor] range:NSMakeRange(6, 8)];
  [made.get() setAttributedText:text.get()];
  const auto pieces = [&] { return told(made.get())["attributedText"]["lines"][0]["pieces"]; };
  EXPECT_EQ(pieces()[0]["ownColor"], false);
  EXPECT_EQ(pieces()[1]["ownColor"], true);
  {
    const sim::SystemSets system;
    [made.get() setAttributedText:text.get()];
  }
  EXPECT_EQ(pieces()[1]["ownColor"], false);
  [made.get() setTextColor:[UIColor whiteColor]];
  EXPECT_EQ(pieces()[0]["ownColor"], true);
  [made.get() setTextColor:nil];
  EXPECT_EQ(pieces()[0]["ownColor"], false) << "all of it has the label's, which is the system's";

  [text.get() addAttribute:NSForegroundColorAttributeName value:[UIColor redColor] range:NSMakeRange(0, 1)];
  const auto other = label();
  [other.get() setAttributedText:text.get()];
  EXPECT_EQ(told(other.get())["ownColor"], true) << "its colour is that of the first character";
  [text.get() addAttribute:NSLinkAttributeName value:@"https://example.org" range:NSMakeRange(0, 5)];
  [other.get() setAttributedText:text.get()];
  EXPECT_EQ(told(other.get())["attributedText"]["lines"][0]["pieces"][0]["ownColor"], false)
      << "a link's is the system's";
}

TEST_F(OwnColorTest, aButtonsTitleHasItsColourFromTheButton) {
  EXPECT_EQ(titleOf([UIButton buttonWithType:UIButtonTypeSystem])["ownColor"], false);
  EXPECT_EQ(titleOf([UIButton buttonWithType:UIButtonTypeCustom])["ownColor"], true) << "white by its type";
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  [button setTintColor:[UIColor whiteColor]];
  EXPECT_EQ(titleOf(button)["ownColor"], true);
  [button setEnabled:NO];
  EXPECT_EQ(titleOf(button)["ownColor"], false) << "the system's grey";
  [button setTitleColor:[UIColor whiteColor] forState:UIControlStateDisabled];
  EXPECT_EQ(titleOf(button)["ownColor"], true);

  UIButton *attributed = [UIButton buttonWithType:UIButtonTypeSystem];
  [attributed setFrame:CGRectMake(0, 0, 100, 30)];
  const auto title = objcxx::adopt([[NSMutableAttributedString alloc] initWithString:@"AB"]);
  [title.get() addAttribute:NSForegroundColorAttributeName value:[UIColor whiteColor] range:NSMakeRange(1, 1)];
  [attributed setAttributedTitle:title.get() forState:UIControlStateNormal];
  const Json pieces = told(attributed)["views"][0]["attributedText"]["lines"][0]["pieces"];
  EXPECT_EQ(pieces[0]["ownColor"], false);
  EXPECT_EQ(pieces[1]["ownColor"], true);
}

TEST_F(OwnColorTest, aRowsTextsHaveTheSystemsColoursUntilTheyAreSet) {
  Json described = rowFilledBy(nil);
  EXPECT_EQ(described["ownLabelColor"], false);
  EXPECT_EQ(described["ownDetailColor"], false);
  described = rowFilledBy(^(UITableViewCell *cell) {
    [[cell textLabel] setTextColor:[UIColor whiteColor]];
  });
  EXPECT_EQ(described["ownLabelColor"], true);
  EXPECT_EQ(described["ownDetailColor"], false);
  described = rowFilledBy(^(UITableViewCell *cell) {
    [[cell detailTextLabel] setTextColor:[UIColor whiteColor]];
  });
  EXPECT_EQ(described["ownLabelColor"], false);
  EXPECT_EQ(described["ownDetailColor"], true);
}

template <typename Field>
class OwnColorOfFieldTest : public OwnColorTest {};

using Fields = ::testing::Types<UITextField, UITextView>;

class FieldNames {
 public:
  template <typename Field>
  static std::string GetName(int number) {
    return number == 0 ? "UITextField" : "UITextView";
  }
};

TYPED_TEST_SUITE(OwnColorOfFieldTest, Fields, FieldNames);

TYPED_TEST(OwnColorOfFieldTest, aFieldHasTheSystemsColourUntilOneIsSet) {
  const auto field = objcxx::adopt([[TypeParam alloc] initWithFrame:CGRectMake(0, 0, 60, 30)]);
  EXPECT_EQ(this->controlOf(field.get())["ownTextColor"], false);
  [field.get() setTextColor:[UIColor whiteColor]];
  EXPECT_EQ(this->controlOf(field.get())["ownTextColor"], true);
  [field.get() setTextColor:nil];
  EXPECT_EQ(this->controlOf(field.get())["ownTextColor"], false);
}

TEST_F(OwnColorTest, aSearchBarsFieldHasTheSystemsColourUntilOneIsSet) {
  const auto bar = objcxx::adopt([[UISearchBar alloc] initWithFrame:CGRectMake(0, 0, 200, 50)]);
  EXPECT_EQ(controlOf(bar.get())["ownTextColor"], false);
  [[bar.get() searchTextField] setTextColor:[UIColor whiteColor]];
  EXPECT_EQ(controlOf(bar.get())["ownTextColor"], true);
}

}  // namespace
