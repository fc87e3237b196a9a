// Anchors as views and layout guides make them.
#pragma once

#import <UIKit/NSLayoutAnchor.h>

namespace sim {

/// A new anchor of the class that goes with the attribute. It keeps the item.
NSLayoutAnchor* anchorOf(id item, NSLayoutAttribute attribute);

}  // namespace sim
