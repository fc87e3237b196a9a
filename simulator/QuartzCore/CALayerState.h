// What a layer remembers. Included by the sources of CALayer only.
#pragma once

#import <QuartzCore/CALayer+Sim.h>

#include <objcxx/Retained.h>

#include <vector>

namespace sim {

struct CALayerState : LayerGeometry {
  id<CALayerDelegate> delegate = nil;  // Not owned; cleared by the view.
  id<SIMLayerOwner> owner = nil;       // Likewise.
  objcxx::Retained<NSString> name;
  CGFloat zPosition = 0;

  CALayer *superlayer = nil;  // Not owned; cleared by the superlayer. Of a view's layer only where no superview has it.
  std::vector<objcxx::Retained<CALayer>> sublayers;
  bool listsSublayers = false;  ///< Of a view's layer: `sublayers` counts, not the subviews alone.
  objcxx::Retained<CALayer> mask;
  bool needsLayout = false;

  objcxx::Retained<NSObject> contents;
  objcxx::Retained<NSObject> madeOfContents;
  objcxx::Retained<NSString> contentsGravity;
  CGFloat contentsScale = 1;
  bool needsDisplay = false;
  bool needsDisplayOnBoundsChange = false;

  CGFloat cornerRadius = 0;
  CACornerMask maskedCorners =
      kCALayerMinXMinYCorner | kCALayerMaxXMinYCorner | kCALayerMinXMaxYCorner | kCALayerMaxXMaxYCorner;
  objcxx::Retained<NSString> cornerCurve;
  CGFloat borderWidth = 0;
  objcxx::Retained<NSObject> borderColor;
  objcxx::Retained<NSObject> shadowColor;
  float shadowOpacity = 0;
  CGSize shadowOffset = {0, -3};
  CGFloat shadowRadius = 3;
  objcxx::Retained<NSObject> shadowPath;

  // Without an owner.
  objcxx::Retained<NSObject> backgroundColor;
  float opacity = 1;
  bool hidden = false;
  bool masksToBounds = false;

  bool opaque = false;
  bool shouldRasterize = false;
  CGFloat rasterizationScale = 1;
  bool drawsAsynchronously = false;
  bool allowsEdgeAntialiasing = false;

  std::vector<std::pair<objcxx::Retained<NSString>, objcxx::Retained<CAAnimation>>> animations;  ///< Those that stay.
  objcxx::Retained<NSMutableDictionary> values;  ///< What is set under keys of the user's own.
};

}  // namespace sim

/// Between the sources of CALayer.
@interface CALayer (State)
- (sim::CALayerState &)sim_state;
@end
