// Things to choose from, in groups and in menus of their own. Main thread only.
#pragma once

#import <UIKit/UIMenuElement.h>

typedef NSString *UIMenuIdentifier;

typedef NS_OPTIONS(NSUInteger, UIMenuOptions) {
  /// The children stand in the menu around this one, as a group.
  UIMenuOptionsDisplayInline = 1 << 0,
  /// The menu's row in the one around it is red.
  UIMenuOptionsDestructive = 1 << 1,
  /// Of the actions in the menu and in those below it one is on: the one that was chosen last.
  UIMenuOptionsSingleSelection = 1 << 5,
};

SIM_STATE_TYPE(MenuState);

@interface UIMenu : UIMenuElement {
 @private
  SIM_STATE(MenuState, _menuState);
}
+ (UIMenu *)menuWithChildren:(NSArray<UIMenuElement *> *)children;
+ (UIMenu *)menuWithTitle:(NSString *)title children:(NSArray<UIMenuElement *> *)children;
/// nil as the identifier stands for one that nothing else has.
+ (UIMenu *)menuWithTitle:(NSString *)title
                    image:(UIImage *)image
               identifier:(UIMenuIdentifier)identifier
                  options:(UIMenuOptions)options
                 children:(NSArray<UIMenuElement *> *)children;
@property(nonatomic, readonly) UIMenuIdentifier identifier;
@property(nonatomic, readonly) UIMenuOptions options;
@property(nonatomic, readonly) NSArray<UIMenuElement *> *children;
/// The actions that are on, of this menu and of those below it.
@property(nonatomic, readonly) NSArray<UIMenuElement *> *selectedElements;
/// The same menu with other children.
- (UIMenu *)menuByReplacingChildren:(NSArray<UIMenuElement *> *)newChildren;
@end
