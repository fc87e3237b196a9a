// How the look of views, controls, rows and bars is described: each test sets what a bundle can set.
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
  Json controlOf(UIControl *control) {
    startControl(control);
    return row(0, 0)["control"];
  }
  /// The description of `view` as the header of a table.
  Json describedView(UIView *view) {
    ListPage *list = startList(@[ @[ @"Row" ] ]);
    [[list tableView] setTableHeaderView:view];
    session().refresh();
    return page()["headerView"];
  }
  static objcxx::Retained<UIView> view(CGFloat width, CGFloat height) {
    return objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, width, height)]);
  }

  objcxx::Retained<LookPage> page_;
};

TEST_F(LookTest, aViewWithoutALayerOfItsOwnHasNone) {
  const Json plain = describedView(view(10, 10).get());
  EXPECT_TRUE(plain["layer"].is_null());
  EXPECT_EQ(plain["clips"], false);
  const auto untouched = view(10, 10);
  (void)[untouched.get() layer];
  EXPECT_TRUE(describedView(untouched.get())["layer"].is_null());
}

TEST_F(LookTest, aLayersCornersBorderAndShadowAreDescribed) {
  const auto round = view(10, 10);
  CALayer *layer = [round.get() layer];
  [layer setCornerRadius:4];
  [layer setMaskedCorners:kCALayerMinXMinYCorner | kCALayerMaxXMaxYCorner];
  [layer setBorderWidth:2];
  [layer setBorderColor:[[UIColor redColor] CGColor]];
  [layer setMasksToBounds:YES];
  [layer setShadowOpacity:0.5];
  [layer setShadowRadius:6];
  [layer setShadowOffset:CGSizeMake(1, 2)];
  const Json described = describedView(round.get());
  EXPECT_EQ(described["clips"], true);
  EXPECT_EQ(described["layer"],
            Json({{"cornerRadius", 4},
                  {"corners", {"topLeft", "bottomRight"}},
                  {"borderWidth", 2},
                  {"borderColor", "#ff0000ff"},
                  {"shadow", {{"color", "#000000ff"}, {"x", 1}, {"y", 2}, {"opacity", 0.5}, {"radius", 6}}}}));
}

TEST_F(LookTest, aLabelIsDrawnInTheColourOfItsState) {
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)]);
  [label.get() setText:@"Text"];
  [label.get() setTextColor:[UIColor redColor]];
  [label.get() setHighlightedTextColor:[UIColor greenColor]];
  EXPECT_EQ(describedView(label.get())["color"], "#ff0000ff");
  [label.get() setHighlighted:YES];
  EXPECT_EQ(describedView(label.get())["color"], "#00ff00ff");
  [label.get() setHighlighted:NO];
  [label.get() setEnabled:NO];
  EXPECT_EQ(describedView(label.get())["color"], "#ff000066");
}

TEST_F(LookTest, aLabelsShadowIsDescribed) {
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 100, 20)]);
  EXPECT_TRUE(describedView(label.get())["textShadow"].is_null());
  [label.get() setShadowColor:[UIColor redColor]];
  [label.get() setShadowOffset:CGSizeMake(1, 3)];
  EXPECT_EQ(describedView(label.get())["textShadow"], Json({{"color", "#ff0000ff"}, {"x", 1}, {"y", 3}}));
}

TEST_F(LookTest, aLabelMakesItsTextFitDownToItsLeastFactor) {
  const auto around = view(100, 20);  // A table gives its header its own width.
  const auto label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectMake(0, 0, 50, 20)]);
  [around.get() addSubview:label.get()];
  const auto fontSize = [&]() -> double { return describedView(around.get())["views"][0]["fontSize"]; };
  [label.get() setText:@"A text that needs more than fifty points"];
  EXPECT_EQ(fontSize(), 17);
  [label.get() setAdjustsFontSizeToFitWidth:YES];
  EXPECT_NEAR(fontSize(), 17 * 50 / [label.get() sizeThatFits:CGSizeZero].width, 0.01);
  [label.get() setMinimumScaleFactor:0.5];
  EXPECT_EQ(fontSize(), 8.5);
  [label.get() setText:@"A"];
  EXPECT_EQ(fontSize(), 17);
}

TEST_F(LookTest, aTemplateHasTheTintOfItsViewWhichComesFromAbove) {
  const auto parent = view(40, 40);
  [parent.get() setTintColor:[UIColor redColor]];
  const auto images = objcxx::adopt([[UIImageView alloc] initWithImage:picture(10)]);
  [parent.get() addSubview:images.get()];
  const auto tint = [&] { return describedView(parent.get())["views"][0]["image"]["tint"]; };
  EXPECT_TRUE(tint().is_null());
  [images.get() setImage:[picture(10) imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate]];
  EXPECT_EQ(tint(), "#ff0000ff");
  [images.get() setTintColor:[UIColor greenColor]];
  EXPECT_EQ(tint(), "#00ff00ff");
  [images.get() setImage:[picture(10) imageWithRenderingMode:UIImageRenderingModeAlwaysOriginal]];
  EXPECT_TRUE(tint().is_null());
}

TEST_F(LookTest, anImageViewShowsItsHighlightedImageWhileItIsHighlighted) {
  UIImage *plain = picture(10), *other = picture(20);
  const auto images = objcxx::adopt([[UIImageView alloc] initWithImage:plain highlightedImage:other]);
  EXPECT_EQ(describedView(images.get())["image"]["width"], 10);
  [images.get() setHighlighted:YES];
  EXPECT_EQ(describedView(images.get())["image"]["width"], 20);
  [images.get() setHighlightedImage:nil];
  EXPECT_EQ(describedView(images.get())["image"]["width"], 10);
}

TEST_F(LookTest, aButtonShowsItsBackgroundImageBehindItsTitle) {
  UIButton *button = [UIButton buttonWithType:UIButtonTypeCustom];
  [button setFrame:CGRectMake(0, 0, 80, 30)];
  [button setTitle:@"Go" forState:UIControlStateNormal];
  [button setBackgroundImage:picture(10) forState:UIControlStateNormal];
  [button layoutIfNeeded];
  const Json views = describedView(button)["views"];
  ASSERT_EQ(views.size(), 2u);
  EXPECT_EQ(views[0]["type"], "image");
  EXPECT_EQ(views[0]["frame"], Json({0, 0, 80, 30}));
  EXPECT_EQ(views[1]["text"], "Go");
}

TEST_F(LookTest, aScrollViewsContentIsDescribed) {
  const auto scroll = objcxx::adopt([[UIScrollView alloc] initWithFrame:CGRectMake(0, 0, 100, 50)]);
  [scroll.get() setContentSize:CGSizeMake(100, 400)];
  [scroll.get() setContentInset:UIEdgeInsetsMake(1, 2, 3, 4)];
  [scroll.get() setScrollEnabled:NO];
  const Json described = describedView(scroll.get());
  EXPECT_EQ(described["type"], "scroll");
  EXPECT_EQ(described["contentSize"], Json({100, 400}));
  EXPECT_EQ(described["contentInset"], Json({1, 2, 3, 4}));
  EXPECT_EQ(described["scrolls"], false);
}

TEST_F(LookTest, whatAnAssistiveTechnologyIsToldOfAViewIsDescribed) {
  const auto element = view(10, 10);
  [element.get() setIsAccessibilityElement:YES];
  [element.get() setAccessibilityLabel:@"Battery"];
  [element.get() setAccessibilityValue:@"40 %"];
  [element.get() setAccessibilityHint:@"Charges soon"];
  [element.get() setAccessibilityIdentifier:@"battery"];
  const Json described = describedView(element.get());
  EXPECT_EQ(described["isAccessibilityElement"], true);
  EXPECT_EQ(described["accessibilityLabel"], "Battery");
  EXPECT_EQ(described["accessibilityValue"], "40 %");
  EXPECT_EQ(described["accessibilityHint"], "Charges soon");
  EXPECT_EQ(described["accessibilityIdentifier"], "battery");
}

TEST_F(LookTest, aSwitchHasItsTints) {
  const auto control = objcxx::adopt([[UISwitch alloc] initWithFrame:CGRectZero]);
  EXPECT_EQ(controlOf(control.get()),
            Json({{"type", "switch"}, {"onTintColor", nullptr}, {"thumbTintColor", nullptr}}));
  [control.get() setOnTintColor:[UIColor redColor]];
  [control.get() setThumbTintColor:[UIColor greenColor]];
  EXPECT_EQ(controlOf(control.get()),
            Json({{"type", "switch"}, {"onTintColor", "#ff0000ff"}, {"thumbTintColor", "#00ff00ff"}}));
}

TEST_F(LookTest, aSliderHasItsTintsAndPictures) {
  const auto slider = objcxx::adopt([[UISlider alloc] initWithFrame:CGRectMake(0, 0, 100, 34)]);
  [slider.get() setTintColor:[UIColor redColor]];
  EXPECT_EQ(controlOf(slider.get())["minimumTrackTintColor"], "#ff0000ff");
  [slider.get() setMinimumTrackTintColor:[UIColor greenColor]];
  [slider.get() setMaximumTrackTintColor:[UIColor blueColor]];
  [slider.get() setThumbTintColor:[UIColor whiteColor]];
  [slider.get() setMinimumValueImage:picture(10)];
  [slider.get() setMaximumValueImage:[picture(20) imageWithRenderingMode:UIImageRenderingModeAlwaysTemplate]];
  const Json described = controlOf(slider.get());
  EXPECT_EQ(described["minimumTrackTintColor"], "#00ff00ff");
  EXPECT_EQ(described["maximumTrackTintColor"], "#0000ffff");
  EXPECT_EQ(described["thumbTintColor"], "#ffffffff");
  EXPECT_EQ(described["minimumImage"]["width"], 10);
  EXPECT_TRUE(described["minimumImage"]["tint"].is_null());
  EXPECT_EQ(described["maximumImage"]["tint"], "#ff0000ff");
}

TEST_F(LookTest, segmentsHaveTheirPicturesStatesAndTint) {
  const auto control = objcxx::adopt([[UISegmentedControl alloc] initWithItems:@[ @"One", picture(10), @"Three" ]]);
  [control.get() setEnabled:NO forSegmentAtIndex:2];
  [control.get() setSelectedSegmentTintColor:[UIColor redColor]];
  const Json described = controlOf(control.get());
  EXPECT_EQ(described["titles"], Json({"One", nullptr, "Three"}));
  EXPECT_TRUE(described["images"][0].is_null());
  EXPECT_EQ(described["images"][1]["width"], 10);
  EXPECT_EQ(described["images"][1]["tint"], Json({{"light", "#000000ff"}, {"dark", "#ffffffff"}}));
  EXPECT_EQ(described["enabled"], Json({true, true, false}));
  EXPECT_EQ(described["selectedTintColor"], "#ff0000ff");
}

TEST_F(LookTest, aFieldHasItsKeyboardColourAlignmentAndSideViews) {
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
}

TEST_F(LookTest, aFieldMakesItsTextFitDownToItsLeastSize) {
  const auto field = objcxx::adopt([[UITextField alloc] initWithFrame:CGRectMake(0, 0, 60, 30)]);
  [field.get() setText:@"A text that needs more than sixty points"];
  EXPECT_EQ(controlOf(field.get())["fontSize"], 17);
  [field.get() setAdjustsFontSizeToFitWidth:YES];
  [field.get() setMinimumFontSize:9];
  EXPECT_EQ(controlOf(field.get())["fontSize"], 9);
}

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
  EXPECT_EQ(page()["bar"], Json({{"color", nullptr},
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
  EXPECT_EQ(page()["bar"], Json({{"color", "#ff0000ff"},
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
  EXPECT_EQ(tap(id), 422);
  [button setEnabled:YES];
  session().refresh();
  EXPECT_EQ(tap(id), 200);
  EXPECT_EQ([[[list navigationController] viewControllers] count], 2u);
}

}  // namespace
