#import <QuartzCore/CAMediaTiming.h>

#include <chrono>

CAMediaTimingFillMode const kCAFillModeForwards = @"forwards";
CAMediaTimingFillMode const kCAFillModeBackwards = @"backwards";
CAMediaTimingFillMode const kCAFillModeBoth = @"both";
CAMediaTimingFillMode const kCAFillModeRemoved = @"removed";
CAMediaTimingFunctionName const kCAMediaTimingFunctionLinear = @"linear";
CAMediaTimingFunctionName const kCAMediaTimingFunctionEaseIn = @"easeIn";
CAMediaTimingFunctionName const kCAMediaTimingFunctionEaseOut = @"easeOut";
CAMediaTimingFunctionName const kCAMediaTimingFunctionEaseInEaseOut = @"easeInEaseOut";
CAMediaTimingFunctionName const kCAMediaTimingFunctionDefault = @"default";

namespace {

struct NamedCurve {
  CAMediaTimingFunctionName name;
  float points[4];
};

const NamedCurve kCurves[] = {{kCAMediaTimingFunctionLinear, {0, 0, 1, 1}},
                              {kCAMediaTimingFunctionEaseIn, {0.42f, 0, 1, 1}},
                              {kCAMediaTimingFunctionEaseOut, {0, 0, 0.58f, 1}},
                              {kCAMediaTimingFunctionEaseInEaseOut, {0.42f, 0, 0.58f, 1}},
                              {kCAMediaTimingFunctionDefault, {0.25f, 0.1f, 0.25f, 1}}};

}  // namespace

@implementation CAMediaTimingFunction

+ (instancetype)functionWithName:(CAMediaTimingFunctionName)name {
  for (const auto &[known, points] : kCurves) {
    if ([known isEqualToString:name]) {
      return [self functionWithControlPoints:points[0]:points[1]:points[2]:points[3]];
    }
  }
  return nil;
}

// clang-format off
+ (instancetype)functionWithControlPoints:(float)c1x :(float)c1y :(float)c2x :(float)c2y {
  // clang-format on
  return [[[self alloc] initWithControlPoints:c1x:c1y:c2x:c2y] autorelease];
}

// clang-format off
- (instancetype)initWithControlPoints:(float)c1x :(float)c1y :(float)c2x :(float)c2y {
  // clang-format on
  if (!(self = [super init])) return nil;
  _points[0] = c1x, _points[1] = c1y, _points[2] = c2x, _points[3] = c2y;
  return self;
}

- (void)getControlPointAtIndex:(size_t)index values:(float[2])values {
  if (index > 3) [NSException raise:NSRangeException format:@"A curve has four points."];
  values[0] = index == 0 ? 0 : index == 3 ? 1 : _points[(index - 1) * 2];
  values[1] = index == 0 ? 0 : index == 3 ? 1 : _points[(index - 1) * 2 + 1];
}

@end

CFTimeInterval CACurrentMediaTime(void) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
