// The simulator's own face of the appearance proxies.
#pragma once

#import <UIKit/UIAppearance.h>
#import <UIKit/UIResponder.h>
#import <UIKit/UITraitCollection.h>

#include <vector>

@class UIView;

namespace sim {

/// What a view is contained in, from the innermost out: views, and before each of those the controller whose view
/// contains it. A controller contains its own view, and a view what is in it. Not owned.
using Containers = std::vector<UIResponder *>;
Containers containersOf(UIView *view);

/// Plays what the proxies took for `object` to it, except what was set of the object itself.
void applyAppearance(NSObject *object, const Containers &around, UITraitCollection *traits);

/// Whether any proxy has taken anything: else there is nothing to play.
bool hasAppearances();

}  // namespace sim
