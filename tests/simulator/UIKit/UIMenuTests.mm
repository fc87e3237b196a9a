// Actions, menus and what is still to come of one: what they say, copies, the kind that cannot be changed.
#import <UIKit/MenuController.h>
#import <UIKit/UIAction+Sim.h>
#import <UIKit/UIDeferredMenuElement+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UIMenuElement+Sim.h>
#import <dispatch/MainQueue+Sim.h>
#import <objcxx/Retained.h>

#import "support/objc/ObjCMatchers.h"
#import "support/objc/ObjCTest.h"

#include <string>
#include <vector>

namespace {

class UIMenuTests : public ObjCTest {
 protected:
  static UIAction *action(NSString *title, UIMenuElementAttributes attributes = 0) {
    UIAction *made = [UIAction actionWithTitle:title
                                         image:nil
                                    identifier:nil
                                       handler:^(UIAction *){
                                       }];
    [made setAttributes:attributes];
    return made;
  }
  static UIMenu *menu(NSString *title, UIMenuOptions options, NSArray *children) {
    return [UIMenu menuWithTitle:title image:nil identifier:nil options:options children:children];
  }
  /// The groups of a menu, each as "[title:] one two".
  static std::vector<std::string> shown(UIMenu *menu) {
    std::vector<std::string> all;
    for (const sim::MenuGroup &group : sim::groupsOf(menu)) {
      std::string text = group.title ? std::string([group.title.get() UTF8String]) + ":" : "";
      for (const auto &element : group.elements) {
        text += text.empty() ? "" : " ";
        text += [element.get() isKindOfClass:[UIDeferredMenuElement class]] ? "…" : [[element.get() title] UTF8String];
      }
      all.push_back(text);
    }
    return all;
  }
};

using Groups = std::vector<std::string>;

TEST_F(UIMenuTests, AnActionSaysWhatItWasGiven) {
  UIImage *image = [UIImage systemImageNamed:@"trash"];
  UIAction *made = [UIAction actionWithTitle:@"Delete" image:image identifier:@"delete" handler:nil];
  EXPECT_OBJC_EQ([made title], @"Delete");
  EXPECT_EQ([made image], image);
  EXPECT_OBJC_EQ([made identifier], @"delete");
  EXPECT_EQ([made subtitle], nil);
  EXPECT_EQ([made discoverabilityTitle], nil);
  EXPECT_EQ([made attributes], 0u);
  EXPECT_EQ([made state], UIMenuElementStateOff);
  [made setSubtitle:@"For good"];
  [made setDiscoverabilityTitle:@"Delete the preset"];
  [made setTitle:@"Remove"];
  [made setImage:nil];
  [made setState:UIMenuElementStateMixed];
  UIAction *copy = [[made copy] autorelease];
  EXPECT_NE(copy, made);
  EXPECT_OBJC_EQ([copy title], @"Remove");
  EXPECT_OBJC_EQ([copy subtitle], @"For good");
  EXPECT_OBJC_EQ([copy discoverabilityTitle], @"Delete the preset");
  EXPECT_OBJC_EQ([copy identifier], @"delete");
  EXPECT_EQ([copy state], UIMenuElementStateMixed);
  EXPECT_EQ([copy image], nil);
  UIAction *plain = [UIAction actionWithHandler:nil];
  EXPECT_OBJC_EQ([plain title], @"");
  EXPECT_OBJC_NE([plain identifier], [[UIAction actionWithHandler:nil] identifier]);
}

TEST_F(UIMenuTests, TheHandlerIsGivenTheActionAndItsSender) {
  __block id sender = nil;
  __block UIAction *given = nil;
  UIAction *made = [UIAction actionWithHandler:^(UIAction *action) {
    given = action;
    sender = [action sender];
  }];
  [made sim_performFrom:@"me"];
  EXPECT_EQ(given, made);
  EXPECT_OBJC_EQ(sender, @"me");
  EXPECT_EQ([made sender], nil) << "only while the handler runs";

  __block objcxx::Retained<UIAction> copy;
  UIAction *copies = [UIAction actionWithHandler:^(UIAction *action) {
    copy = objcxx::adopt((UIAction *)[action copy]);
  }];
  [copies sim_performFrom:@"me"];
  EXPECT_EQ([copy.get() sender], nil) << "a copy was sent by nobody";
  copy = nullptr;  // It keeps the handler, which keeps it.
}

TEST_F(UIMenuTests, AMenuHasItsChildrenAndThoseThatAreOn) {
  UIAction *on = action(@"On");
  [on setState:UIMenuElementStateOn];
  UIMenu *inner = menu(@"Inner", 0, @[ action(@"Off"), on ]);
  UIMenu *outer = [UIMenu menuWithTitle:@"Outer" children:@[ inner, action(@"Last") ]];
  EXPECT_EQ([[outer children] count], 2u);
  EXPECT_OBJC_EQ([outer selectedElements], @[ on ]);
  EXPECT_EQ([outer options], 0u);
  UIMenu *other = [outer menuByReplacingChildren:@[ on ]];
  EXPECT_OBJC_EQ([other identifier], [outer identifier]);
  EXPECT_OBJC_EQ([other title], @"Outer");
  EXPECT_OBJC_EQ([other children], @[ on ]);
  EXPECT_OBJC_NE([[UIMenu menuWithChildren:@[]] identifier], [[UIMenu menuWithChildren:@[]] identifier]);
}

TEST_F(UIMenuTests, CopiesCanBeChangedAndFrozenOnesCannot) {
  UIAction *child = action(@"Child");
  UIMenu *frozen = [menu(@"", 0, @[ child ]) sim_frozen];
  UIAction *fixed = (UIAction *)[[frozen children] firstObject];
  EXPECT_NE(fixed, child) << "the maker's own stays changeable";
  [child setTitle:@"Changed"];
  EXPECT_OBJC_EQ([fixed title], @"Child");
  EXPECT_EQ(raisedBy([&] { [fixed setTitle:@"x"]; }), "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] { [fixed setState:UIMenuElementStateOn]; }), "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] { [fixed setAttributes:0]; }), "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] { [fixed setImage:nil]; }), "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] { [fixed setSubtitle:nil]; }), "NSInternalInconsistencyException");
  EXPECT_EQ(raisedBy([&] { [fixed setDiscoverabilityTitle:nil]; }), "NSInternalInconsistencyException");
  EXPECT_EQ([frozen sim_frozen], frozen);
  UIMenu *copy = [[frozen copy] autorelease];
  [(UIAction *)[[copy children] firstObject] setTitle:@"Mine"];
  EXPECT_OBJC_EQ([[[copy children] firstObject] title], @"Mine");
  EXPECT_OBJC_EQ([fixed title], @"Child");
  UIMenu *single = menu(@"", UIMenuOptionsSingleSelection, @[ child ]);
  EXPECT_EQ([[[single copy] autorelease] options], UIMenuOptionsSingleSelection);
}

TEST_F(UIMenuTests, InlineMenusAreGroups) {
  UIMenu *own = menu(@"Sort", UIMenuOptionsDisplayInline, @[ action(@"b"), action(@"c") ]);
  UIMenu *below = menu(@"More", 0, @[ action(@"x") ]);
  EXPECT_EQ(shown(menu(@"", 0, @[ action(@"a"), own, action(@"d"), below ])), (Groups{"a", "Sort: b c", "d More"}));
  UIMenu *nested = menu(@"", UIMenuOptionsDisplayInline, @[ own, action(@"e") ]);
  EXPECT_EQ(shown(menu(@"", 0, @[ nested ])), (Groups{"Sort: b c", "e"}));
  UIMenu *titled = menu(@"All", UIMenuOptionsDisplayInline, @[ action(@"e"), own ]);
  EXPECT_EQ(shown(menu(@"", 0, @[ titled ])), (Groups{"All: e", "Sort: b c"}))
      << "a title stands above all of its menu";
}

TEST_F(UIMenuTests, HiddenAndEmptyElementsAreNotShown) {
  UIAction *hidden = action(@"h", UIMenuElementAttributesHidden);
  EXPECT_EQ(shown(menu(@"", 0, @[ hidden, action(@"a"), menu(@"Empty", 0, @[ hidden ]) ])), (Groups{"a"}));
  EXPECT_EQ(shown(menu(@"", 0, @[ menu(@"Sort", UIMenuOptionsDisplayInline, @[]) ])), Groups{});
  EXPECT_EQ(shown(menu(@"", 0, @[ action(@"d", UIMenuElementAttributesDisabled) ])), (Groups{"d"}));
}

TEST_F(UIMenuTests, DeferredElementsComeWhenTheyAreShown) {
  __block int asked = 0;
  __block void (^answer)(NSArray<UIMenuElement *> *) = nil;
  UIDeferredMenuElement *later =
      [UIDeferredMenuElement elementWithProvider:^(void (^completion)(NSArray<UIMenuElement *> *)) {
        ++asked;
        answer = [[completion copy] autorelease];
      }];
  UIMenu *all = [menu(@"", 0, @[ action(@"a"), later ]) sim_frozen];
  EXPECT_EQ(shown(all), (Groups{"a …"}));
  EXPECT_EQ(asked, 0) << "nobody has opened the menu";
  [later sim_appear];
  [later sim_appear];
  EXPECT_EQ(asked, 1);
  answer(@[ action(@"b"), menu(@"Own", UIMenuOptionsDisplayInline, @[ action(@"c") ]) ]);
  EXPECT_EQ(shown(all), (Groups{"a b", "Own: c"}));
  [later sim_disappear];
  [later sim_appear];
  EXPECT_EQ(asked, 1) << "it is kept";
  EXPECT_EQ(shown(all), (Groups{"a b", "Own: c"}));
}

TEST_F(UIMenuTests, UncachedElementsAreAskedForEachTime) {
  __block int asked = 0;
  __block void (^answer)(NSArray<UIMenuElement *> *) = nil;
  UIDeferredMenuElement *later =
      [UIDeferredMenuElement elementWithUncachedProvider:^(void (^completion)(NSArray<UIMenuElement *> *)) {
        ++asked;
        answer = [[completion copy] autorelease];
      }];
  [later sim_appear];
  void (^first)(NSArray<UIMenuElement *> *) = answer;
  [later sim_disappear];
  [later sim_appear];
  EXPECT_EQ(asked, 2);
  first(@[ action(@"old") ]);
  EXPECT_EQ([later sim_elements], nil) << "the answer is to a question of before";
  answer(@[ action(@"new") ]);
  EXPECT_EQ([[later sim_elements] count], 1u);
  [later sim_disappear];
  EXPECT_EQ([later sim_elements], nil);
}

TEST_F(UIMenuTests, ChoosingTurnsOneOn) {
  UIAction *one = action(@"1");
  UIAction *two = action(@"2");
  [one setState:UIMenuElementStateOn];
  UIMenu *all = menu(@"", 0, @[ one, menu(@"In", 0, @[ two ]) ]);
  sim::choose(all, two);
  EXPECT_EQ([one state], UIMenuElementStateOff);
  EXPECT_EQ([two state], UIMenuElementStateOn);

  UIDeferredMenuElement *later =
      [UIDeferredMenuElement elementWithProvider:^(void (^done)(NSArray<UIMenuElement *> *)) {
        done(@[ action(@"3") ]);
      }];
  [later sim_appear];
  UIAction *three = (UIAction *)[[later sim_elements] firstObject];
  UIMenu *with = menu(@"", 0, @[ two, later ]);
  sim::choose(with, three);
  EXPECT_EQ([two state], UIMenuElementStateOff);
  EXPECT_EQ([three state], UIMenuElementStateOn) << "what came late is one of the choices";
}

}  // namespace
