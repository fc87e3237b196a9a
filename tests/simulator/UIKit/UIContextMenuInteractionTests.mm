// Menus of views and of rows, which a finger opens that stays.
#include "simulator/UIKit/MenuTestCase.h"

// A view's menu, and a table's, whose coming and going is written down.
@interface MenuOwner : NSObject <UIContextMenuInteractionDelegate, UITableViewDelegate, UITableViewDataSource> {
 @public
  objcxx::Retained<UIMenu> menu;
  std::string log;
  CGPoint location;
}
@end

@implementation MenuOwner

- (UIContextMenuConfiguration *)configuration {
  if (!menu) return nil;
  UIMenu *shown = menu.get();
  return [UIContextMenuConfiguration configurationWithIdentifier:@"mine"
                                                 previewProvider:nil
                                                  actionProvider:^UIMenu *(NSArray *suggested) {
                                                    return [suggested count] == 0 ? shown : nil;
                                                  }];
}

- (UIContextMenuConfiguration *)contextMenuInteraction:(UIContextMenuInteraction *)interaction
                        configurationForMenuAtLocation:(CGPoint)at {
  location = at;
  log += "asked ";
  return [self configuration];
}

- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
    willDisplayMenuForConfiguration:(UIContextMenuConfiguration *)configuration
                           animator:(id<UIContextMenuInteractionAnimating>)animator {
  log += [interaction menuAppearance] == UIContextMenuInteractionAppearanceRich ? "comes " : "wrong ";
  [animator addAnimations:^{
    self->log += "moves ";
  }];
  [animator addCompletion:^{
    self->log += "there ";
  }];
  log += "told ";
}

- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
       willEndForConfiguration:(UIContextMenuConfiguration *)configuration
                      animator:(id<UIContextMenuInteractionAnimating>)animator {
  log += [(NSString *)[configuration identifier] isEqual:@"mine"] ? "goes " : "wrong ";
  [animator addCompletion:^{
    self->log += [interaction menuAppearance] == UIContextMenuInteractionAppearanceUnknown ? "gone " : "wrong ";
  }];
}

- (NSInteger)tableView:(UITableView *)table numberOfRowsInSection:(NSInteger)section {
  return 3;
}

- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  return [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil] autorelease];
}

- (void)tableView:(UITableView *)table didSelectRowAtIndexPath:(NSIndexPath *)path {
  log += "selected ";
}

- (UIContextMenuConfiguration *)tableView:(UITableView *)table
    contextMenuConfigurationForRowAtIndexPath:(NSIndexPath *)path
                                        point:(CGPoint)point {
  log += "row" + std::to_string([path row]) + " ";
  return [path row] == 1 ? [self configuration] : nil;
}

- (void)tableView:(UITableView *)table
    willDisplayContextMenuWithConfiguration:(UIContextMenuConfiguration *)configuration
                                   animator:(id<UIContextMenuInteractionAnimating>)animator {
  log += "comes ";
}

- (void)tableView:(UITableView *)table
    willEndContextMenuInteractionWithConfiguration:(UIContextMenuConfiguration *)configuration
                                          animator:(id<UIContextMenuInteractionAnimating>)animator {
  log += "goes ";
}

@end

namespace {

class UIContextMenuInteractionTests : public MenuTestCase {
 protected:
  void SetUp() override {
    MenuTestCase::SetUp();
    owner_ = objcxx::adopt([[MenuOwner alloc] init]);
  }
  void TearDown() override {
    MenuTestCase::TearDown();
    owner_ = nullptr;
  }

  objcxx::Retained<MenuOwner> owner_;
};

TEST_F(UIContextMenuInteractionTests, AFingerThatStaysOnAViewOpensItsMenu) {
  UIView *view = [[[UIView alloc] initWithFrame:CGRectMake(40, 60, 100, 100)] autorelease];
  [[root_.get() view] addSubview:view];
  const auto interaction = objcxx::adopt([[UIContextMenuInteraction alloc] initWithDelegate:owner_.get()]);
  [view addInteraction:interaction.get()];
  EXPECT_OBJC_EQ([view interactions], @[ interaction.get() ]);
  EXPECT_EQ([interaction.get() view], view);
  press(view, CGPointMake(7, 9));
  EXPECT_EQ(open(), nil) << "there is no menu";
  EXPECT_EQ(std::exchange(owner_.get()->log, {}), "asked ");
  owner_.get()->menu = objcxx::share(menu(@[ action(@"a") ]));
  press(view, CGPointMake(7, 9));
  EXPECT_EQ(owner_.get()->location.x, 7);
  EXPECT_EQ([interaction.get() locationInView:nil].y, 69);
  ASSERT_NE(open(), nil);
  EXPECT_TRUE([open() rich]);
  SIMDrainMainQueue();
  EXPECT_EQ(std::exchange(owner_.get()->log, {}), "asked comes told moves there ");
  EXPECT_TRUE(choose(@"a"));
  EXPECT_EQ(taken(), "a ") << "nobody is the sender";
  EXPECT_EQ(std::exchange(owner_.get()->log, {}), "goes gone ");
  [view removeInteraction:interaction.get()];
  EXPECT_EQ([interaction.get() view], nil);
  EXPECT_EQ([[view gestureRecognizers] count], 0u);
  press(view, CGPointMake(7, 9));
  EXPECT_EQ(owner_.get()->log, "");
}

TEST_F(UIContextMenuInteractionTests, AnOpenMenuIsChangedAndDismissedByCode) {
  UIView *view = [[[UIView alloc] initWithFrame:CGRectMake(40, 60, 100, 100)] autorelease];
  [[root_.get() view] addSubview:view];
  const auto interaction = objcxx::adopt([[UIContextMenuInteraction alloc] initWithDelegate:owner_.get()]);
  [view setInteractions:@[ interaction.get() ]];
  UIMenu *inner = [UIMenu menuWithTitle:@"Inner" children:@[ action(@"deep") ]];
  owner_.get()->menu = objcxx::share(menu(@[ action(@"a"), inner ]));
  __block int calls = 0;
  UIMenu * (^rename)(UIMenu *) = ^UIMenu *(UIMenu *shown) {
    ++calls;
    for (UIMenuElement *each in [shown children]) {
      if ([each isKindOfClass:[UIAction class]]) [(UIAction *)each setTitle:[[each title] uppercaseString]];
    }
    return shown;
  };
  [interaction.get() updateVisibleMenuWithBlock:rename];
  EXPECT_EQ(calls, 0) << "nothing is open";
  press(view, CGPointMake(7, 9));
  EXPECT_TRUE(choose(@"Inner"));
  [interaction.get() updateVisibleMenuWithBlock:rename];
  EXPECT_EQ(calls, 2);
  EXPECT_EQ([[open() openMenus] count], 2u);
  EXPECT_NE(element(@"DEEP"), nil);
  EXPECT_TRUE([open() tapElement:[[open() openMenus] lastObject]]);
  EXPECT_NE(element(@"A"), nil);
  [interaction.get() dismissMenu];
  EXPECT_EQ(open(), nil);
}

TEST_F(UIContextMenuInteractionTests, RowsOfATableHaveMenus) {
  UITableView *table = [[[UITableView alloc] initWithFrame:CGRectMake(0, 0, 390, 400)] autorelease];
  [table setDataSource:owner_.get()];
  EXPECT_EQ([table contextMenuInteraction], nil);
  [table setDelegate:owner_.get()];
  EXPECT_NE([table contextMenuInteraction], nil);
  [[root_.get() view] addSubview:table];
  [table layoutIfNeeded];
  owner_.get()->menu = objcxx::share(menu(@[ action(@"a") ]));
  UITableViewCell *first = [table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:0 inSection:0]];
  UITableViewCell *second = [table cellForRowAtIndexPath:[NSIndexPath indexPathForRow:1 inSection:0]];
  press(first, CGPointMake(7, 9));
  EXPECT_EQ(open(), nil);
  EXPECT_EQ(std::exchange(owner_.get()->log, {}), "row0 selected ") << "without a menu it is a tap";
  press(second, CGPointMake(7, 9));
  ASSERT_NE(open(), nil);
  EXPECT_EQ([[open() popoverPresentationController] sourceView], second);
  EXPECT_TRUE(choose(@"a"));
  EXPECT_EQ(std::exchange(owner_.get()->log, {}), "row1 comes goes ");
  [table setDelegate:nil];
  EXPECT_EQ([table contextMenuInteraction], nil);
  EXPECT_EQ([[table interactions] count], 0u);
  [table setDataSource:nil];
}

}  // namespace
