// How the look of rows, tables and bars is described: each test sets what a bundle can set.
#import <QuartzCore/QuartzCore.h>

#include "simulator/Settings/SessionTest.h"

/// A page whose only row, of the style subtitle, a test fills in.
@interface LookPage : ListPage {
 @public
  void (^fill)(UITableViewCell *cell);
}
@end

@implementation LookPage
- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [super tableView:tableView cellForRowAtIndexPath:path];
  if (fill) fill(cell);
  return cell;
}
@end

namespace {

class LookTest : public SessionTest {
 protected:
  /// Shows a page whose row `fill` changes.
  Json rowFilledBy(void (^fill)(UITableViewCell *cell)) {
    page_ = objcxx::adopt([[LookPage alloc] initWithTitle:@"Page" sections:@[ @[ @"Row" ] ]]);
    page_.get()->fill = fill;
    start(page_.get());
    page_.get()->fill = nil;
    return row(0, 0);
  }

  Json barWithoutLooks() {
    Json bar = page()["bar"];
    for (const char *name : {"standard", "scrollEdge", "interfaceStyle"}) EXPECT_EQ(bar.erase(name), 1u) << name;
    return bar;
  }

  objcxx::Retained<LookPage> page_;
};

TEST_F(LookTest, aRowHasItsOwnLook) {
  const Json described = rowFilledBy(^(UITableViewCell *cell) {
    [cell setTintColor:[UIColor redColor]];
    [cell setBackgroundColor:[UIColor greenColor]];
    [cell setBackgroundView:view(1, 1).get()];
    [cell setAccessoryView:view(30, 20).get()];
    [cell setSeparatorInset:UIEdgeInsetsMake(0, 5, 0, 7)];
    [cell setHighlighted:YES];
    [[cell textLabel] setFont:[UIFont systemFontOfSize:20 weight:UIFontWeightBold]];
    [cell setAccessibilityValue:@"on"];
    [cell setAccessibilityHint:@"Opens"];
    [cell setAccessibilityIdentifier:@"row"];
  });
  EXPECT_EQ(described["tintColor"], "#ff0000ff");
  EXPECT_EQ(described["backgroundColor"], "#00ff00ff");
  EXPECT_EQ(described["backgroundView"]["class"], "UIView");
  EXPECT_EQ(described["accessoryView"]["frame"][2], 30);
  EXPECT_EQ(described["separatorInset"], Json({5, 7}));
  EXPECT_EQ(described["highlighted"], true);
  EXPECT_EQ(described["labelSize"], 20);
  EXPECT_EQ(described["labelWeight"], 700);
  EXPECT_EQ(described["accessibilityValue"], "on");
  EXPECT_EQ(described["accessibilityHint"], "Opens");
  EXPECT_EQ(described["accessibilityIdentifier"], "row");
}

TEST_F(LookTest, aPlainRowLeavesItsLookToTheSystem) {
  const Json described = rowFilledBy(nil);
  for (const char *name : {"tintColor", "backgroundView", "accessoryView", "separatorInset", "accessibilityHint"}) {
    EXPECT_TRUE(described[name].is_null()) << name;
  }
  EXPECT_EQ(described["highlighted"], false);
}

TEST_F(LookTest, aRowsPictureHasItsLayerAndTint) {
  const Json described = rowFilledBy(^(UITableViewCell *cell) {
    [[cell imageView] setImage:[picture(10) imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate]];
    [[cell imageView] setTintColor:[UIColor redColor]];
    [[[cell imageView] layer] setCornerRadius:3];
    [[cell imageView] setClipsToBounds:YES];
    [[cell imageView] setContentMode:UIViewContentModeScaleAspectFill];
  });
  EXPECT_EQ(described["image"]["tint"], "#ff0000ff");
  EXPECT_EQ(described["imageStyle"]["layer"]["cornerRadius"], 3);
  EXPECT_EQ(described["imageStyle"]["clips"], true);
  EXPECT_EQ(described["imageStyle"]["contentMode"], "scaleAspectFill");
}

TEST_F(LookTest, aTableHasItsOwnLook) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  EXPECT_EQ(page()["separators"], true);
  EXPECT_TRUE(page()["separatorColor"].is_null());
  EXPECT_TRUE(page()["headerView"].is_null());
  UITableView *table = [list tableView];
  [table setSeparatorStyle:UITableViewCellSeparatorStyleNone];
  [table setSeparatorColor:[UIColor redColor]];
  [table setSeparatorInset:UIEdgeInsetsZero];
  [table setBackgroundColor:[UIColor greenColor]];
  [table setBackgroundView:view(1, 1).get()];
  [table setTableHeaderView:view(10, 40).get()];
  [table setTableFooterView:view(10, 50).get()];
  [table setContentInset:UIEdgeInsetsMake(6, 0, 8, 0)];
  [table setScrollEnabled:NO];
  session().refresh();
  EXPECT_EQ(page()["separators"], false);
  EXPECT_EQ(page()["separatorColor"], "#ff0000ff");
  EXPECT_EQ(row(0, 0)["separatorInset"], Json({0, 0}));
  EXPECT_EQ(page()["backgroundColor"], "#00ff00ff");
  EXPECT_EQ(page()["backgroundView"]["type"], "view");
  EXPECT_EQ(page()["headerView"]["frame"][3], 40);
  EXPECT_EQ(page()["footerView"]["frame"][3], 50);
  EXPECT_EQ(page()["contentInset"], Json({6, 8}));
  EXPECT_EQ(page()["scrolls"], false);
}

TEST_F(LookTest, theBarHasItsColoursPromptAndTitleView) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  EXPECT_EQ(barWithoutLooks(), Json({{"color", nullptr},
                                     {"titleColor", nullptr},
                                     {"largeTitleColor", nullptr},
                                     {"tintColor", nullptr},
                                     {"translucent", true},
                                     {"hidden", false}}));
  UINavigationBar *bar = [[list navigationController] navigationBar];
  [bar setBarTintColor:[UIColor redColor]];
  [bar setTintColor:[UIColor greenColor]];
  [bar setTranslucent:NO];
  [bar setTitleTextAttributes:@{NSForegroundColorAttributeName : [UIColor blueColor]}];
  [bar setLargeTitleTextAttributes:@{NSForegroundColorAttributeName : [UIColor blackColor]}];
  [[list navigationItem] setPrompt:@"Choose"];
  [[list navigationItem] setTitleView:view(80, 30).get()];
  session().refresh();
  EXPECT_EQ(barWithoutLooks(), Json({{"color", "#ff0000ff"},
                                     {"titleColor", "#0000ffff"},
                                     {"largeTitleColor", "#000000ff"},
                                     {"tintColor", "#00ff00ff"},
                                     {"translucent", false},
                                     {"hidden", false}}));
  EXPECT_EQ(page()["prompt"], "Choose");
  EXPECT_EQ(page()["titleView"]["frame"][2], 80);
  [bar setBarTintColor:nil];
  [bar setTitleTextAttributes:nil];
  [bar setBarStyle:UIBarStyleBlack];
  [[list navigationController] setNavigationBarHidden:YES];
  session().refresh();
  EXPECT_EQ(page()["bar"]["color"], "#000000ff");
  EXPECT_EQ(page()["bar"]["titleColor"], "#ffffffff");
  EXPECT_EQ(page()["bar"]["hidden"], true);
}

TEST_F(LookTest, aTitleViewWithoutASizeTakesWhatItsConstraintsNeedInTheBar) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  UINavigationBar *bar = [[list navigationController] navigationBar];
  UIView *title = [[[UIView alloc] init] autorelease];
  UILabel *label = [[[UILabel alloc] initWithFrame:CGRectMake(0, 0, 10, 10)] autorelease];
  [label setText:@"Kite"];
  [label setTranslatesAutoresizingMaskIntoConstraints:NO];
  [title addSubview:label];
  [NSLayoutConstraint activateConstraints:@[
    [[label topAnchor] constraintEqualToAnchor:[title topAnchor]],
    [[label bottomAnchor] constraintEqualToAnchor:[title bottomAnchor]],
    [[label leadingAnchor] constraintEqualToAnchor:[title leadingAnchor]],
    [[label trailingAnchor] constraintEqualToAnchor:[title trailingAnchor]]
  ]];
  [[list navigationItem] setTitleView:title];
  [bar setTintColor:[UIColor greenColor]];
  session().refresh();
  const Json shown = page()["titleView"];
  EXPECT_EQ(shown["frame"][2], [label intrinsicContentSize].width);
  EXPECT_EQ(shown["views"][0]["frame"][2], [label intrinsicContentSize].width);
  EXPECT_EQ(shown["views"][0]["frame"][3], [label intrinsicContentSize].height);
  EXPECT_TRUE([[title tintColor] isEqual:[UIColor greenColor]]) << "it is in the bar";
  [label setText:@"A longer name"];
  session().refresh();
  EXPECT_EQ(page()["titleView"]["frame"][2], [label intrinsicContentSize].width);
  EXPECT_GT([label intrinsicContentSize].width, shown["frame"][2].get<double>());

  const auto own = view(80, 30);
  UIBarButtonItem *button = [[[UIBarButtonItem alloc] initWithCustomView:own.get()] autorelease];
  [[list navigationItem] setTitleView:nil];
  [[list navigationItem] setRightBarButtonItem:button];
  session().refresh();
  EXPECT_EQ([title superview], nil);
  EXPECT_EQ([own.get() superview], bar);
  EXPECT_EQ([own.get() bounds].size.width, 80) << "its own size stays";
}

TEST_F(LookTest, aTableThatKeepsClearOfNothingBeginsUnderTheBar) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  [[list navigationItem] setLargeTitleDisplayMode:UINavigationItemLargeTitleDisplayModeNever];
  session().refresh();
  EXPECT_EQ(page()["underBar"], false);
  [(UITableView *)[list view] setContentInsetAdjustmentBehavior:UIScrollViewContentInsetAdjustmentNever];
  session().refresh();
  EXPECT_EQ(page()["underBar"], true);
  [list setEdgesForExtendedLayout:UIRectEdgeNone];
  session().refresh();
  EXPECT_EQ(page()["underBar"], false);
}

TEST_F(LookTest, theFirstPageHasALargeTitleAndOthersThatAskForOne) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  EXPECT_EQ(page()["largeTitle"], true);
  [[list navigationItem] setLargeTitleDisplayMode:UINavigationItemLargeTitleDisplayModeNever];
  session().refresh();
  EXPECT_EQ(page()["largeTitle"], false);
  const auto next = objcxx::adopt([[ListPage alloc] initWithTitle:@"Next" sections:@[ @[ @"Row" ] ]]);
  [[list navigationController] pushViewController:next.get() animated:NO];
  session().refresh();
  EXPECT_EQ(page()["largeTitle"], false);
  [[next.get() navigationItem] setLargeTitleDisplayMode:UINavigationItemLargeTitleDisplayModeAlways];
  session().refresh();
  EXPECT_EQ(page()["largeTitle"], true);
  [[[list navigationController] navigationBar] setPrefersLargeTitles:NO];
  session().refresh();
  EXPECT_EQ(page()["largeTitle"], false);
}

TEST_F(LookTest, barButtonsHaveTheirPictureTintWeightAndView) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  const auto save = objcxx::adopt([[UIBarButtonItem alloc] initWithTitle:@"Save"
                                                                   style:UIBarButtonItemStyleDone
                                                                  target:list
                                                                  action:@selector(pushNext)]);
  [save.get() setWidth:70];
  [save.get() setTintColor:[UIColor redColor]];
  [save.get() setAccessibilityLabel:@"Keep"];
  [save.get() setAccessibilityIdentifier:@"save"];
  const auto star = objcxx::adopt([[UIBarButtonItem alloc] initWithImage:picture(20)
                                                                   style:UIBarButtonItemStylePlain
                                                                  target:list
                                                                  action:@selector(pushNext)]);
  const auto custom = objcxx::adopt([[UIBarButtonItem alloc] initWithCustomView:view(50, 20).get()]);
  [[list navigationItem] setLeftBarButtonItems:@[ save.get(), star.get(), custom.get() ]];
  session().refresh();
  const Json buttons = page()["buttons"];
  EXPECT_EQ(buttons[0]["style"], "done");
  EXPECT_EQ(buttons[0]["width"], 70);
  EXPECT_EQ(buttons[0]["tintColor"], "#ff0000ff");
  EXPECT_EQ(buttons[0]["accessibilityLabel"], "Keep");
  EXPECT_EQ(buttons[0]["accessibilityIdentifier"], "save");
  EXPECT_EQ(buttons[1]["style"], "plain");
  EXPECT_EQ(buttons[1]["image"]["width"], 20);
  EXPECT_FALSE(buttons[1]["image"]["tint"].is_null()) << "a bar's pictures are templates";
  EXPECT_EQ(buttons[2]["view"]["frame"][2], 50);
}

TEST_F(LookTest, aBarShowsSymbolsAtTheLargeScaleUnlessTheySayOtherwise) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  UIImageSymbolConfiguration *large = [UIImageSymbolConfiguration configurationWithScale:UIImageSymbolScaleLarge];
  UIImageSymbolConfiguration *small = [UIImageSymbolConfiguration configurationWithScale:UIImageSymbolScaleSmall];
  const auto widthOf = [](UIImageSymbolConfiguration *configuration) {
    return [[UIImage systemImageNamed:@"trash" withConfiguration:configuration] size].width;
  };
  const auto button = [&](UIImage *image) {
    return objcxx::adopt([[UIBarButtonItem alloc] initWithImage:image
                                                          style:UIBarButtonItemStylePlain
                                                         target:list
                                                         action:@selector(pushNext)]);
  };
  const auto plain = button([UIImage systemImageNamed:@"trash"]);
  const auto own = button([UIImage systemImageNamed:@"trash" withConfiguration:small]);
  [[list navigationItem] setLeftBarButtonItems:@[ plain.get(), own.get() ]];
  session().refresh();
  const Json buttons = page()["buttons"];
  EXPECT_EQ(buttons[0]["image"]["width"], widthOf(large));
  EXPECT_EQ(buttons[1]["image"]["width"], widthOf(small));
  EXPECT_FALSE(buttons[0]["image"]["tint"].is_null());
  EXPECT_NE(widthOf(large), widthOf(nil));
}

TEST_F(LookTest, aTapOnABarsViewReachesTheControlInIt) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  const auto holder = view(50, 30);
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  [button addTarget:list action:@selector(pushNext) forControlEvents:UIControlEventTouchUpInside];
  [holder.get() addSubview:button];
  [[list navigationItem]
      setRightBarButtonItem:objcxx::adopt([[UIBarButtonItem alloc] initWithCustomView:holder.get()]).get()];
  session().refresh();
  const std::string id = page()["buttons"][0]["id"];
  [button setEnabled:NO];
  session().refresh();
  EXPECT_EQ(tap(id), Outcome::refused);
  [button setEnabled:YES];
  session().refresh();
  EXPECT_EQ(tap(id), Outcome::done);
  EXPECT_EQ([[[list navigationController] viewControllers] count], 2u);
}

}  // namespace
