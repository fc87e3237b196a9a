// A window with a page, menus whose actions write down that they were chosen, and a finger that stays.
#pragma once

#import <UIKit/MenuController.h>
#import <UIKit/TouchDispatch.h>
#import <UIKit/UIBarButtonItem+Sim.h>
#import <UIKit/UIContextMenuInteraction+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UITableView+Sim.h>
#import <UIKit/UIViewController+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <string>

namespace testing_support {

class MenuTestCase : public ObjCTest {
 protected:
  void SetUp() override {
    ObjCTest::SetUp();
    window_ = objcxx::adopt([[UIWindow alloc] initWithFrame:CGRectMake(0, 0, 390, 844)]);
    root_ = objcxx::adopt([[UIViewController alloc] init]);
    [window_.get() setRootViewController:root_.get()];
    [window_.get() makeKeyAndVisible];
  }
  void TearDown() override {
    SIMDrainMainQueue();
    window_ = nullptr;
    root_ = nullptr;
    ObjCTest::TearDown();
  }

  UIAction *action(NSString *title, UIMenuElementAttributes attributes = 0) {
    std::string *log = &log_;
    UIAction *made = [UIAction actionWithTitle:title
                                         image:nil
                                    identifier:title
                                       handler:^(UIAction *each) {
                                         *log += [[each title] UTF8String];
                                         *log += [each sender] ? "! " : " ";
                                       }];
    [made setAttributes:attributes];
    return made;
  }
  UIMenu *menu(NSArray *children, UIMenuOptions options = 0) {
    return [UIMenu menuWithTitle:@"Menu" image:nil identifier:@"menu" options:options children:children];
  }
  UIButton *button(UIMenu *menu, BOOL primary) {
    UIButton *made = [UIButton buttonWithType:UIButtonTypeSystem];
    [made setFrame:CGRectMake(10, 20, 100, 44)];
    [made setMenu:menu];
    [made setShowsMenuAsPrimaryAction:primary];
    [[root_.get() view] addSubview:made];
    return made;
  }
  /// The menu on the screen; nil when there is none.
  SIMMenuController *open() {
    UIViewController *front = [root_.get() sim_frontmostViewController];
    return [front isKindOfClass:[SIMMenuController class]] ? (SIMMenuController *)front : nil;
  }
  UIMenuElement *element(NSString *title) {
    for (const sim::MenuGroup &group : sim::groupsOf([[open() openMenus] lastObject])) {
      for (const auto &each : group.elements) {
        if ([[each.get() title] isEqual:title]) return each.get();
      }
    }
    return nil;
  }
  BOOL choose(NSString *title) { return [open() tapElement:element(title)]; }
  std::string taken() { return std::exchange(log_, {}); }

  static void press(UIView *view, CGPoint at) {
    sim::TouchDispatch &dispatch = sim::TouchDispatch::shared();
    dispatch.begin(view, [view convertPoint:at toView:nil], dispatch.now());
    dispatch.skip(0.6);
    dispatch.ring();
    dispatch.end([view convertPoint:at toView:nil], dispatch.now());
    dispatch.wait();
  }

  objcxx::Retained<UIWindow> window_;
  objcxx::Retained<UIViewController> root_;
  std::string log_;
};

}  // namespace testing_support

using testing_support::MenuTestCase;
