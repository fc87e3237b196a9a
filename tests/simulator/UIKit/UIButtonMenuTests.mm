// Actions of controls, and the menus of buttons and bar buttons.
#include "simulator/UIKit/MenuTestCase.h"

// Keeps an action away.
@interface DeafButton : UIButton
@end

@implementation DeafButton
- (void)sendAction:(UIAction *)action {
}
@end

namespace {

class UIButtonMenuTests : public MenuTestCase {};

TEST_F(UIButtonMenuTests, ControlsDoActionsInTheOrderInWhichTheyCame) {
  UIControl *control = [[[UIControl alloc] initWithFrame:CGRectZero primaryAction:action(@"first")] autorelease];
  [control addAction:action(@"second") forControlEvents:UIControlEventPrimaryActionTriggered];
  [control addAction:action(@"down") forControlEvents:UIControlEventTouchDown];
  EXPECT_EQ([control allControlEvents], UIControlEventPrimaryActionTriggered | UIControlEventTouchDown);
  EXPECT_EQ([[control allTargets] count], 0u);
  EXPECT_TRUE([control sim_tapByUser]);
  EXPECT_EQ(taken(), "down! first! second! ");
}

TEST_F(UIButtonMenuTests, AnActionOfAKnownIdentifierTakesThePlaceOfThatOne) {
  UIControl *control = [[[UIControl alloc] initWithFrame:CGRectZero] autorelease];
  [control addAction:action(@"a") forControlEvents:UIControlEventTouchDown];
  [control addAction:action(@"b") forControlEvents:UIControlEventTouchDown];
  UIAction *same = action(@"a");
  [same setTitle:@"new"];
  [control addAction:same forControlEvents:UIControlEventTouchCancel];
  [control sendActionsForControlEvents:UIControlEventTouchDown];
  EXPECT_EQ(taken(), "new! b! ");
  [control sendActionsForControlEvents:UIControlEventTouchCancel];
  EXPECT_EQ(taken(), "new! ");
  [control removeActionForIdentifier:@"a" forControlEvents:UIControlEventTouchDown];
  [control sendActionsForControlEvents:UIControlEventAllTouchEvents];
  EXPECT_EQ(taken(), "new! b! ");
  [control removeAction:same forControlEvents:UIControlEventAllEvents];
  [control sendActionsForControlEvents:UIControlEventAllTouchEvents];
  EXPECT_EQ(taken(), "b! ");
  EXPECT_EQ(raisedBy([&] { [control addAction:nil forControlEvents:UIControlEventTouchDown]; }),
            "NSInvalidArgumentException");
}

TEST_F(UIButtonMenuTests, TargetsAndActionsAreCountedUpTogether) {
  UIControl *control = [[[UIControl alloc] initWithFrame:CGRectZero] autorelease];
  [control addTarget:root_.get() action:@selector(description) forControlEvents:UIControlEventTouchDown];
  [control addAction:action(@"a") forControlEvents:UIControlEventValueChanged];
  [control addAction:action(@"b") forControlEvents:UIControlEventTouchDown];
  // Taking targets away leaves actions alone, and the other way round.
  __block std::string found;
  [control enumerateEventHandlers:^(UIAction *each, id target, SEL selector, UIControlEvents events, BOOL *stop) {
    found += each ? [[each title] UTF8String] : sel_getName(selector);
    found += (each == nil) == (target != nil) ? " " : "? ";
    *stop = events == UIControlEventValueChanged;
  }];
  EXPECT_EQ(found, "description a ");
  [control removeTarget:nil action:NULL forControlEvents:UIControlEventAllEvents];
  EXPECT_EQ([control allControlEvents], UIControlEventValueChanged | UIControlEventTouchDown);
  EXPECT_EQ([control actionsForTarget:nil forControlEvent:UIControlEventTouchDown], nil);
}

TEST_F(UIButtonMenuTests, SubclassesMayKeepAnActionAway) {
  DeafButton *button = [DeafButton buttonWithType:UIButtonTypeCustom primaryAction:action(@"a")];
  EXPECT_TRUE([button isKindOfClass:[DeafButton class]]);
  [button sendActionsForControlEvents:UIControlEventPrimaryActionTriggered];
  EXPECT_EQ(taken(), "");
}

TEST_F(UIButtonMenuTests, ButtonsShowTheirAction) {
  UIAction *made = action(@"Do");
  [made setImage:[UIImage systemImageNamed:@"trash"]];
  UIButton *system = [UIButton systemButtonWithPrimaryAction:made];
  EXPECT_EQ([system buttonType], UIButtonTypeSystem);
  EXPECT_OBJC_EQ([system currentTitle], @"Do");
  EXPECT_EQ([system currentImage], [made image]);
  EXPECT_TRUE([system sim_tapByUser]);
  EXPECT_EQ(taken(), "Do! ");
  UIButton *info = [UIButton buttonWithType:UIButtonTypeInfoLight primaryAction:made];
  EXPECT_EQ([info currentTitle], nil) << "it has a picture of its own";
  UIButton *custom = [[[UIButton alloc] initWithFrame:CGRectZero primaryAction:made] autorelease];
  EXPECT_EQ([custom buttonType], UIButtonTypeCustom);
  EXPECT_OBJC_EQ([custom currentTitle], @"Do");
  UIButton *pictured = [UIButton systemButtonWithImage:[made image] target:root_.get() action:@selector(description)];
  EXPECT_EQ([pictured currentImage], [made image]);
  EXPECT_EQ([pictured allControlEvents], UIControlEventPrimaryActionTriggered);
}

TEST_F(UIButtonMenuTests, ATapOpensAMenuThatIsThePrimaryAction) {
  UIButton *made = button(menu(@[ action(@"a"), action(@"b", UIMenuElementAttributesDisabled) ]), YES);
  [made addAction:action(@"tap") forControlEvents:UIControlEventTouchUpInside];
  [made addAction:action(@"opens") forControlEvents:UIControlEventMenuActionTriggered];
  EXPECT_TRUE([made isContextMenuInteractionEnabled]);
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_EQ(taken(), "opens! ");
  ASSERT_NE(open(), nil);
  EXPECT_TRUE([made isHeld]);
  EXPECT_FALSE([open() rich]);
  EXPECT_EQ([[open() popoverPresentationController] sourceView], made);
  SIMMenuController *shown = open();
  [made sim_tapByUser];
  EXPECT_EQ(open(), shown) << "it opens once";
  EXPECT_EQ(taken(), "");
  EXPECT_FALSE(choose(@"b")) << "disabled";
  EXPECT_TRUE(choose(@"a"));
  EXPECT_EQ(taken(), "a! ");
  EXPECT_EQ(open(), nil);
  EXPECT_FALSE([made isHeld]);
  [made setShowsMenuAsPrimaryAction:NO];
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_EQ(taken(), "tap! ");
  EXPECT_EQ(open(), nil);
}

TEST_F(UIButtonMenuTests, AFingerThatStaysOpensTheMenuOfAButton) {
  UIButton *made = button(menu(@[ action(@"a") ]), NO);
  [made addAction:action(@"tap") forControlEvents:UIControlEventTouchUpInside];
  press(made, CGPointMake(5, 5));
  ASSERT_NE(open(), nil);
  EXPECT_EQ(taken(), "") << "the button itself hears of no tap";
  [open() leave];
  EXPECT_EQ(open(), nil);
  [made setMenu:nil];
  EXPECT_FALSE([made isContextMenuInteractionEnabled]);
  press(made, CGPointMake(5, 5));
  EXPECT_EQ(open(), nil);
  EXPECT_EQ(taken(), "tap! ");
}

TEST_F(UIButtonMenuTests, ATouchOpensAMenuWhenItIsLifted) {
  UIButton *made = button(menu(@[ action(@"a") ]), YES);
  sim::TouchDispatch &dispatch = sim::TouchDispatch::shared();
  [made addAction:action(@"up") forControlEvents:UIControlEventTouchUpInside];
  dispatch.begin(made, CGPointMake(20, 30), dispatch.now());
  dispatch.end(CGPointMake(20, 30), dispatch.now());
  dispatch.wait();
  EXPECT_NE(open(), nil);
  EXPECT_EQ(taken(), "");
}

TEST_F(UIButtonMenuTests, TheMenuOfAButtonIsACopyThatNobodyChanges) {
  UIAction *child = action(@"a");
  UIButton *made = button(menu(@[ child ]), YES);
  [child setTitle:@"later"];
  EXPECT_OBJC_EQ([[[[made menu] children] firstObject] title], @"a");
  UIAction *fixed = (UIAction *)[[[made menu] children] firstObject];
  EXPECT_EQ(raisedBy([&] { [fixed setTitle:@"x"]; }), "NSInternalInconsistencyException");
}

TEST_F(UIButtonMenuTests, MenusOpenInMenus) {
  UIMenu *inner = [UIMenu menuWithTitle:@"Inner" children:@[ action(@"deep") ]];
  UIButton *made = button(menu(@[ action(@"a"), inner ]), YES);
  EXPECT_TRUE([made sim_tapByUser]);
  UIMenuElement *first = element(@"a");
  UIMenuElement *header = element(@"Inner");
  EXPECT_TRUE([open() tapElement:header]);
  EXPECT_EQ([[open() openMenus] count], 2u);
  EXPECT_FALSE([open() tapElement:first]) << "covered";
  EXPECT_TRUE([open() tapElement:header]) << "a tap on its head closes it";
  EXPECT_EQ([[open() openMenus] count], 1u);
  EXPECT_TRUE([open() tapElement:header]);
  EXPECT_TRUE(choose(@"deep"));
  EXPECT_EQ(taken(), "deep! ");
  EXPECT_EQ(open(), nil);
}

TEST_F(UIButtonMenuTests, ClosingAMenuClosesThoseInItAndNoOther) {
  UIMenu *third = [UIMenu menuWithTitle:@"Third" children:@[ action(@"deep") ]];
  UIMenu *second = [UIMenu menuWithTitle:@"Second" children:@[ third ]];
  UIMenu *first = [UIMenu menuWithTitle:@"First" children:@[ second ]];
  EXPECT_TRUE([button(menu(@[ first ]), YES) sim_tapByUser]);
  EXPECT_TRUE(choose(@"First"));
  UIMenuElement *header = element(@"Second");
  EXPECT_TRUE(choose(@"Second"));
  EXPECT_TRUE(choose(@"Third"));
  EXPECT_EQ([[open() openMenus] count], 4u);
  EXPECT_TRUE([open() tapElement:header]);
  EXPECT_EQ([[open() openMenus] count], 2u);
  EXPECT_OBJC_EQ([[[open() openMenus] lastObject] title], @"First");
  EXPECT_TRUE(choose(@"Second")) << "it opens anew";
  EXPECT_OBJC_EQ([[[open() openMenus] lastObject] title], @"Second");
}

TEST_F(UIButtonMenuTests, AMenuThatIsOpenIsChangedByAnotherOne) {
  UIMenu *inner = [UIMenu menuWithTitle:@"Inner" image:nil identifier:@"inner" options:0 children:@[ action(@"old") ]];
  UIButton *made = button(menu(@[ inner ]), YES);
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_TRUE(choose(@"Inner"));
  [made setMenu:menu(@[ action(@"other"), [inner menuByReplacingChildren:@[ action(@"new") ]] ])];
  EXPECT_EQ([[open() openMenus] count], 2u) << "what was open stays open";
  EXPECT_NE(element(@"new"), nil);
  [made setMenu:menu(@[ action(@"x") ])];
  EXPECT_EQ([[open() openMenus] count], 1u) << "it is not there any more";
  EXPECT_NE(element(@"x"), nil);
  [made setMenu:nil];
  EXPECT_EQ(open(), nil) << "without a menu there is nothing to show";
}

TEST_F(UIButtonMenuTests, AMenuWithoutTheOneThatWasOpenInItClosesWhatWasOpenThere) {
  UIMenu *deep = [UIMenu menuWithTitle:@"Deep" image:nil identifier:@"deep" options:0 children:@[ action(@"a") ]];
  UIMenu *inner = [UIMenu menuWithTitle:@"Inner" image:nil identifier:@"inner" options:0 children:@[ deep ]];
  UIButton *made = button(menu(@[ inner ]), YES);
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_TRUE(choose(@"Inner"));
  EXPECT_TRUE(choose(@"Deep"));
  [made setMenu:menu(@[ deep ])];
  EXPECT_EQ([[open() openMenus] count], 1u);
  [made setMenu:menu(@[])];
  EXPECT_EQ(open(), nil) << "nothing is left to show";
}

TEST_F(UIButtonMenuTests, WhatIsStillToComeIsAskedForWhereAMenuIsOpen) {
  __block int asked = 0;
  UIDeferredMenuElement *later =
      [UIDeferredMenuElement elementWithProvider:^(void (^done)(NSArray<UIMenuElement *> *)) {
        ++asked;
        done(@[ action(@"late") ]);
      }];
  UIMenu *inner = [UIMenu menuWithTitle:@"Inner" children:@[ later ]];
  EXPECT_TRUE([button(menu(@[ inner ]), YES) sim_tapByUser]);
  [open() askForDeferredElements];
  EXPECT_EQ(asked, 0);
  EXPECT_TRUE(choose(@"Inner"));
  [open() askForDeferredElements];
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(choose(@"late"));
  EXPECT_EQ(taken(), "late! ");
}

TEST_F(UIButtonMenuTests, OneOfASingleSelectionIsOn) {
  UIMenu *single = menu(@[ action(@"a"), action(@"b") ], UIMenuOptionsSingleSelection);
  UIAction *apart = action(@"c");
  [apart setState:UIMenuElementStateOn];
  UIButton *made = button([UIMenu menuWithTitle:@"" children:@[ single, apart ]], YES);
  for (NSString *title in @[ @"a", @"b" ]) {
    EXPECT_TRUE([made sim_tapByUser]);
    EXPECT_TRUE(choose(@"Menu"));
    EXPECT_TRUE(choose(title));
    NSArray *on = [[made menu] selectedElements];
    ASSERT_EQ([on count], 2u) << "what stands apart is left alone";
    EXPECT_OBJC_EQ([[on firstObject] title], title);
  }
}

TEST_F(UIButtonMenuTests, APopUpButtonShowsWhatWasChosen) {
  UIButton *made = button(menu(@[ action(@"a"), action(@"b") ]), YES);
  EXPECT_EQ([made currentTitle], nil);
  [made setChangesSelectionAsPrimaryAction:YES];
  EXPECT_OBJC_EQ([made currentTitle], @"a") << "the first, as none is on";
  EXPECT_OBJC_EQ([[[[made menu] selectedElements] firstObject] title], @"a") << "and is on from then";
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_TRUE(choose(@"b"));
  EXPECT_EQ(taken(), "b! ");
  EXPECT_OBJC_EQ([made currentTitle], @"b");
  EXPECT_EQ([[[made menu] selectedElements] count], 1u);
  UIAction *second = action(@"d");
  [second setState:UIMenuElementStateOn];
  [made setMenu:menu(@[ action(@"c"), second ])];
  EXPECT_OBJC_EQ([made currentTitle], @"d");
}

TEST_F(UIButtonMenuTests, AButtonWithoutAMenuTogglesItsSelection) {
  UIButton *made = [UIButton buttonWithType:UIButtonTypeSystem primaryAction:action(@"a")];
  [made setChangesSelectionAsPrimaryAction:YES];
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_TRUE([made isSelected]);
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_FALSE([made isSelected]);
  EXPECT_EQ(taken(), "a! a! ");
}

TEST_F(UIButtonMenuTests, AnEmptyMenuDoesNotOpen) {
  UIButton *made = button(menu(@[ action(@"h", UIMenuElementAttributesHidden) ]), YES);
  EXPECT_TRUE([made sim_tapByUser]);
  EXPECT_EQ(open(), nil);
  EXPECT_FALSE([made isHeld]);
}

TEST_F(UIButtonMenuTests, TheHandlerMayPresentSomething) {
  __block UIViewController *root = root_.get();  // Not kept by the action that it keeps.
  UIAction *presents = [UIAction actionWithTitle:@"Ask"
                                           image:nil
                                      identifier:nil
                                         handler:^(UIAction *) {
                                           [root presentViewController:[[[UIViewController alloc] init] autorelease]
                                                              animated:YES
                                                            completion:nil];
                                         }];
  EXPECT_TRUE([button(menu(@[ presents ]), YES) sim_tapByUser]);
  EXPECT_TRUE(choose(@"Ask"));
  EXPECT_EQ([[root presentedViewController] class], [UIViewController class]);
}

TEST_F(UIButtonMenuTests, BarButtonsDoTheirActionAndOpenTheirMenu) {
  UIAction *add = action(@"Add");
  UIBarButtonItem *acts = [[[UIBarButtonItem alloc] initWithPrimaryAction:add] autorelease];
  EXPECT_OBJC_EQ([acts title], @"Add");
  EXPECT_NE([acts primaryAction], add) << "a copy";
  EXPECT_TRUE([acts sim_tap]);
  EXPECT_EQ(taken(), "Add! ");
  EXPECT_FALSE([acts sim_press]) << "it has no menu";

  UIBarButtonItem *opens = [[[UIBarButtonItem alloc] initWithTitle:@"More" menu:menu(@[ action(@"a") ])] autorelease];
  EXPECT_TRUE([opens sim_showsMenuByTap]);
  [opens setAction:@selector(description)];
  EXPECT_FALSE([opens sim_showsMenuByTap]) << "a tap does its action";
  [opens setAction:NULL];
  EXPECT_TRUE([opens sim_tap]);
  ASSERT_NE(open(), nil);
  EXPECT_EQ([[open() popoverPresentationController] barButtonItem], opens);
  EXPECT_FALSE([opens sim_tap]) << "it is open";
  [opens setMenu:menu(@[ action(@"b") ])];
  EXPECT_TRUE(choose(@"b"));
  EXPECT_EQ(taken(), "b! ");
  EXPECT_EQ(open(), nil);
  EXPECT_TRUE([opens sim_tap]) << "and once more";
  [open() leave];
  [opens setEnabled:NO];
  EXPECT_FALSE([opens sim_tap]);

  UIBarButtonItem *both = [[[UIBarButtonItem alloc] initWithBarButtonSystemItem:UIBarButtonSystemItemAdd
                                                                  primaryAction:add] autorelease];
  [both setMenu:menu(@[ action(@"a") ])];
  EXPECT_EQ([both title], nil) << "it is the system's";
  EXPECT_FALSE([both sim_showsMenuByTap]);
  EXPECT_TRUE([both sim_tap]);
  EXPECT_EQ(taken(), "Add! ");
  EXPECT_EQ(open(), nil);
  EXPECT_TRUE([both sim_press]);
  EXPECT_NE(open(), nil);
  [open() leave];
}

TEST_F(UIButtonMenuTests, AButtonInABarOpensItsMenu) {
  UIButton *made = button(menu(@[ action(@"a") ]), YES);
  [made removeFromSuperview];
  UIBarButtonItem *item = [[[UIBarButtonItem alloc] initWithCustomView:made] autorelease];
  EXPECT_TRUE([item sim_tap]);
  EXPECT_TRUE(choose(@"a"));
  EXPECT_EQ(taken(), "a! ");
}

TEST_F(UIButtonMenuTests, WhatAMenuBelongsToMayGoWhileItIsOpen) {
  int deaths = 0;
  @autoreleasepool {
    UIButton *made = button(menu(@[ action(@"a") ]), YES);
    [made addAction:[UIAction actionWithHandler:^(UIAction *){
                    }]
        forControlEvents:UIControlEventTouchDown];
    const auto lifetime = objcxx::adopt([[Lifetime alloc] initWithCounter:&deaths]);
    Lifetime *held = lifetime.get();
    [made addAction:[UIAction actionWithHandler:^(UIAction *) {
            (void)[held description];
          }]
        forControlEvents:UIControlEventTouchUpOutside];
    EXPECT_TRUE([made sim_tapByUser]);
    [made removeFromSuperview];
  }
  EXPECT_EQ(deaths, 0) << "its menu keeps it";
  @autoreleasepool {
    EXPECT_TRUE(choose(@"a"));
  }
  SIMDrainMainQueue();
  drainPool();
  EXPECT_EQ(deaths, 1);
}

}  // namespace
