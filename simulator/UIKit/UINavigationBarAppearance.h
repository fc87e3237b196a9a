// What a navigation bar looks like.
#pragma once

#import <UIKit/UIBarAppearance.h>
#import <UIKit/UIBarButtonItemAppearance.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(NavigationBarAppearanceState);

/// Bars and navigation items copy it: what is changed of it afterwards is not theirs. Main thread.
@interface UINavigationBarAppearance : UIBarAppearance {
 @private
  SIM_STATE(NavigationBarAppearanceState, _navigationBarAppearanceState);
}
/// NSFontAttributeName and NSForegroundColorAttributeName are drawn. Empty at first.
@property(nonatomic, readwrite, copy) NSDictionary *titleTextAttributes;
/// How far the title is moved, in points; a large one is not.
@property(nonatomic, readwrite, assign) UIOffset titlePositionAdjustment;
@property(nonatomic, readwrite, copy) NSDictionary *largeTitleTextAttributes;
@property(nonatomic, readwrite, copy) UIBarButtonItemAppearance *buttonAppearance;
/// Of buttons of the style "done".
@property(nonatomic, readwrite, copy) UIBarButtonItemAppearance *doneButtonAppearance;
@property(nonatomic, readwrite, copy) UIBarButtonItemAppearance *backButtonAppearance;
@end
