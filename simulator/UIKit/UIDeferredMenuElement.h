// Elements of a menu that are asked for when it is opened. Main thread only.
#pragma once

#import <UIKit/UIMenuElement.h>

SIM_STATE_TYPE(DeferredMenuState);

/// Stands for the elements that `elementProvider` gives to its `completion`, at once or later; until then the menu says
/// that it is loading.
@interface UIDeferredMenuElement : UIMenuElement {
 @private
  SIM_STATE(DeferredMenuState, _deferredMenuState);
}
/// The provider is asked once, when the element is first shown.
+ (instancetype)elementWithProvider:(void (^)(void (^completion)(NSArray<UIMenuElement *> *elements)))elementProvider;
/// The provider is asked each time that the element is shown.
+ (instancetype)elementWithUncachedProvider:
    (void (^)(void (^completion)(NSArray<UIMenuElement *> *elements)))elementProvider;
@end
