// What animations consist of. Included by their sources only.
#pragma once

#import <QuartzCore/CAAnimation+Sim.h>

#include <objcxx/Retained.h>

namespace sim {

/// Of every kind of animation; each uses its part.
struct CAAnimationState {
  CFTimeInterval beginTime = 0;
  CFTimeInterval duration = 0;
  float speed = 1;
  CFTimeInterval timeOffset = 0;
  float repeatCount = 0;
  CFTimeInterval repeatDuration = 0;
  bool autoreverses = false;
  objcxx::Retained<NSString> fillMode = objcxx::share((NSString *)kCAFillModeRemoved);
  objcxx::Retained<NSObject> delegate;
  objcxx::Retained<CAMediaTimingFunction> timingFunction;
  bool removedOnCompletion = true;

  objcxx::Retained<NSString> keyPath;
  bool additive = false;
  bool cumulative = false;

  objcxx::Retained<NSObject> fromValue;
  objcxx::Retained<NSObject> toValue;
  objcxx::Retained<NSObject> byValue;

  objcxx::Retained<NSArray> values;
  objcxx::Retained<NSObject> path;
  objcxx::Retained<NSArray> keyTimes;
  objcxx::Retained<NSArray> timingFunctions;
  objcxx::Retained<NSString> calculationMode = objcxx::share((NSString *)kCAAnimationLinear);
  objcxx::Retained<NSString> rotationMode;

  CGFloat mass = 1;
  CGFloat stiffness = 100;
  CGFloat damping = 10;
  CGFloat initialVelocity = 0;

  objcxx::Retained<NSArray> animations;
  objcxx::Retained<NSString> type = objcxx::share((NSString *)kCATransitionFade);
  objcxx::Retained<NSString> subtype;
};

}  // namespace sim

@interface CAAnimation (State)
- (sim::CAAnimationState *)sim_state;
/// What the value under the key path ends at; nil for what it is.
- (id)sim_endValueFrom:(id)model;
@end
