#pragma once

#import <UIKit/UIKit.h>

@class PSSpecifier;

/// A page of the Settings application. Main thread only.
@interface PSViewController : UIViewController {
 @private
  PSSpecifier *_specifier;
  id _parentController;  // Not owned.
  id _rootController;    // Not owned.
}
/// The row that opened the page; nil for the first page. Its name becomes the title of a page that has none.
@property(nonatomic, retain) PSSpecifier *specifier;

- (id)parentController;
- (void)setParentController:(id)controller;
- (id)rootController;
- (void)setRootController:(id)controller;

/// The stored value of the specifier's "key" in the domain "defaults", else its "default"; inverted by "negate".
- (id)readPreferenceValue:(PSSpecifier *)specifier;
/// Stores the value and posts "PostNotification". nil, and a value equal to the last one, are ignored.
- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier;

- (void)pushController:(id)controller;
- (void)pushController:(id)controller animate:(BOOL)animate;
- (void)showController:(id)controller;
- (void)showController:(id)controller animate:(BOOL)animate;
@end
