// The look of all instances of a class, set once.
#pragma once

#import <UIKit/UIKitDefines.h>

@class UITraitCollection;

/// Marks what the proxies are meant for. They take every setter of the class, marked or not.
#define UI_APPEARANCE_SELECTOR

/// Views and view controllers: what others can be contained in.
@protocol UIAppearanceContainer <NSObject>
@end

/// What each method returns takes the setters of the class, and answers the getters with what was set. A view takes the
/// values when it comes into a window, a bar's item when it is shown; what was set of the instance itself since the
/// proxy took that setter stays. Of several proxies that are meant for an instance, those of its own class win over
/// those of superclasses, then those for its traits; then the one whose containers are met first from the window down.
/// A proxy lives as long as the process. Main thread.
@protocol UIAppearance <NSObject>
+ (instancetype)appearance;
/// In an instance of the first class, which is in one of the second, and so on; nil ends the list.
+ (instancetype)appearanceWhenContainedIn:(Class<UIAppearanceContainer>)containerClass, ... NS_REQUIRES_NIL_TERMINATION;
+ (instancetype)appearanceWhenContainedInInstancesOfClasses:(NSArray<Class<UIAppearanceContainer>> *)containerTypes;
/// Where the traits of the window contain these.
+ (instancetype)appearanceForTraitCollection:(UITraitCollection *)trait;
+ (instancetype)appearanceForTraitCollection:(UITraitCollection *)trait
                             whenContainedIn:(Class<UIAppearanceContainer>)containerClass,
                                             ... NS_REQUIRES_NIL_TERMINATION;
+ (instancetype)appearanceForTraitCollection:(UITraitCollection *)trait
           whenContainedInInstancesOfClasses:(NSArray<Class<UIAppearanceContainer>> *)containerTypes;
@end
