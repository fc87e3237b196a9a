// Values of a layer under keys and key paths, as animations name them: structures as NSValue, colours, paths and images
// as objects, parts of structures below them.
#import <QuartzCore/CALayerState.h>
#import <UIKit/UIGeometry.h>

#include <array>
#include <cmath>

namespace {

struct KeyedValue {
  NSString *key;
  id (*get)(CALayer *layer);
  void (*set)(CALayer *layer, id value);
};

const KeyedValue kKeyed[] = {
    {@"frame", [](CALayer *layer) -> id { return [NSValue valueWithCGRect:[layer frame]]; },
     [](CALayer *layer, id value) { [layer setFrame:[value CGRectValue]]; }},
    {@"bounds", [](CALayer *layer) -> id { return [NSValue valueWithCGRect:[layer bounds]]; },
     [](CALayer *layer, id value) { [layer setBounds:[value CGRectValue]]; }},
    {@"position", [](CALayer *layer) -> id { return [NSValue valueWithCGPoint:[layer position]]; },
     [](CALayer *layer, id value) { [layer setPosition:[value CGPointValue]]; }},
    {@"anchorPoint", [](CALayer *layer) -> id { return [NSValue valueWithCGPoint:[layer anchorPoint]]; },
     [](CALayer *layer, id value) { [layer setAnchorPoint:[value CGPointValue]]; }},
    {@"shadowOffset", [](CALayer *layer) -> id { return [NSValue valueWithCGSize:[layer shadowOffset]]; },
     [](CALayer *layer, id value) { [layer setShadowOffset:[value CGSizeValue]]; }},
    {@"transform", [](CALayer *layer) -> id { return [NSValue valueWithCATransform3D:[layer transform]]; },
     [](CALayer *layer, id value) { [layer setTransform:value ? [value CATransform3DValue] : CATransform3DIdentity]; }},
    {@"backgroundColor", [](CALayer *layer) { return (id)[layer backgroundColor]; },
     [](CALayer *layer, id value) { [layer setBackgroundColor:(CGColorRef)value]; }},
    {@"borderColor", [](CALayer *layer) { return (id)[layer borderColor]; },
     [](CALayer *layer, id value) { [layer setBorderColor:(CGColorRef)value]; }},
    {@"shadowColor", [](CALayer *layer) { return (id)[layer shadowColor]; },
     [](CALayer *layer, id value) { [layer setShadowColor:(CGColorRef)value]; }},
    {@"shadowPath", [](CALayer *layer) { return (id)[layer shadowPath]; },
     [](CALayer *layer, id value) { [layer setShadowPath:(CGPathRef)value]; }},
};

const KeyedValue *keyed(NSString *key) {
  for (const KeyedValue &value : kKeyed) {
    if ([value.key isEqualToString:key]) return &value;
  }
  return nullptr;
}

/// A part of a structure that is an array of numbers.
struct Part {
  NSString *path;
  NSString *whole;
  std::size_t index;
};

const Part kParts[] = {
    {@"position.x", @"position", 0},
    {@"position.y", @"position", 1},
    {@"anchorPoint.x", @"anchorPoint", 0},
    {@"anchorPoint.y", @"anchorPoint", 1},
    {@"frame.origin.x", @"frame", 0},
    {@"frame.origin.y", @"frame", 1},
    {@"frame.size.width", @"frame", 2},
    {@"frame.size.height", @"frame", 3},
    {@"bounds.origin.x", @"bounds", 0},
    {@"bounds.origin.y", @"bounds", 1},
    {@"bounds.size.width", @"bounds", 2},
    {@"bounds.size.height", @"bounds", 3},
    {@"shadowOffset.width", @"shadowOffset", 0},
    {@"shadowOffset.height", @"shadowOffset", 1},
};

const Part *partAt(NSString *path) {
  for (const Part &part : kParts) {
    if ([part.path isEqualToString:path]) return &part;
  }
  return nullptr;
}

using Numbers = std::array<CGFloat, 4>;

/// Those of a point, a size or a rectangle.
Numbers numbersOf(NSValue *value) {
  if (strcmp([value objCType], @encode(CGPoint)) == 0) return {[value CGPointValue].x, [value CGPointValue].y, 0, 0};
  if (strcmp([value objCType], @encode(CGSize)) == 0) {
    return {[value CGSizeValue].width, [value CGSizeValue].height, 0, 0};
  }
  const CGRect rect = [value CGRectValue];
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

/// A value of the kind of `like`.
NSValue *valueLike(NSValue *like, const Numbers &numbers) {
  const auto [a, b, c, d] = numbers;
  if (strcmp([like objCType], @encode(CGPoint)) == 0) return [NSValue valueWithCGPoint:CGPointMake(a, b)];
  if (strcmp([like objCType], @encode(CGSize)) == 0) return [NSValue valueWithCGSize:CGSizeMake(a, b)];
  return [NSValue valueWithCGRect:CGRectMake(a, b, c, d)];
}

enum class Turn {
  kNone,
  kRotationX,
  kRotationY,
  kRotationZ,
  kScale,
  kScaleX,
  kScaleY,
  kScaleZ,
  kMoveX,
  kMoveY,
  kMoveZ,
  kMove
};

/// What a path below `transform` sets of it.
Turn turnAt(NSString *path) {
  static constexpr struct {
    const char *path;
    Turn turn;
  } kTurns[] = {{"transform.rotation", Turn::kRotationZ},   {"transform.rotation.z", Turn::kRotationZ},
                {"transform.rotation.x", Turn::kRotationX}, {"transform.rotation.y", Turn::kRotationY},
                {"transform.scale", Turn::kScale},          {"transform.scale.x", Turn::kScaleX},
                {"transform.scale.y", Turn::kScaleY},       {"transform.scale.z", Turn::kScaleZ},
                {"transform.translation.x", Turn::kMoveX},  {"transform.translation.y", Turn::kMoveY},
                {"transform.translation.z", Turn::kMoveZ},  {"transform.translation", Turn::kMove}};
  for (const auto &[known, turn] : kTurns) {
    if (strcmp(known, [path UTF8String]) == 0) return turn;
  }
  return Turn::kNone;
}

/// A transform taken apart: scaled, then turned about x, y and z, then moved, then seen in perspective.
struct Turned {
  explicit Turned(const CATransform3D &t) : x(t.m41), y(t.m42), z(t.m43) {
    const Row i(t.m11, t.m12, t.m13), j(t.m21, t.m22, t.m23), k(t.m31, t.m32, t.m33);
    scaleX = i.length, scaleY = j.length, scaleZ = k.length;
    const CGFloat volume =
        i.x * (j.y * k.z - j.z * k.y) - i.y * (j.x * k.z - j.z * k.x) + i.z * (j.x * k.y - j.y * k.x);
    if (volume < 0) scaleY = -scaleY;
    perspective = lastColumnOf(volume == 0 ? t : CATransform3DConcat(CATransform3DInvert(affineOf(t)), t));
    // Two triples of angles are the same turn: the smaller ones are those that somebody would have set.
    const CGFloat across = std::hypot(i.x, i.y);
    angleX = std::atan2(j.z * std::copysign(1, scaleY), k.z);
    angleY = std::atan2(-i.z, across);
    angleZ = std::atan2(i.y, i.x);
    const CGFloat otherX = turnedBack(angleX), otherY = turnedBack(-angleY), otherZ = turnedBack(angleZ);
    if (std::abs(otherX) + std::abs(otherY) + std::abs(otherZ) + kSame <
        std::abs(angleX) + std::abs(angleY) + std::abs(angleZ)) {
      angleX = otherX, angleY = otherY, angleZ = otherZ;
    }
  }

  CATransform3D whole() const {
    CATransform3D t = CATransform3DTranslate(perspective, x, y, z);
    t = CATransform3DRotate(t, angleZ, 0, 0, 1);
    t = CATransform3DRotate(t, angleY, 0, 1, 0);
    t = CATransform3DRotate(t, angleX, 1, 0, 0);
    return CATransform3DScale(t, scaleX, scaleY, scaleZ);
  }

  CGFloat scaleX, scaleY, scaleZ;
  CGFloat angleX, angleY, angleZ;
  CGFloat x, y, z;
  CATransform3D perspective;

 private:
  static constexpr CGFloat kSame = 1e-9;  // Radians.

  /// A row of the matrix, one long, and how long it was.
  struct Row {
    Row(CGFloat a, CGFloat b, CGFloat c) : length(std::hypot(a, b, c)) {
      if (length > 0) x = a / length, y = b / length, z = c / length;
    }
    CGFloat x = 0, y = 0, z = 0, length;
  };

  /// Half a turn from `angle`, between -pi and pi.
  static CGFloat turnedBack(CGFloat angle) { return angle > 0 ? angle - M_PI : angle + M_PI; }

  /// `t` without its perspective.
  static CATransform3D affineOf(CATransform3D t) {
    t.m14 = t.m24 = t.m34 = 0, t.m44 = 1;
    return t;
  }

  static CATransform3D lastColumnOf(const CATransform3D &t) {
    CATransform3D column = CATransform3DIdentity;
    column.m14 = t.m14, column.m24 = t.m24, column.m34 = t.m34, column.m44 = t.m44;
    return column;
  }
};

id valueOf(const CATransform3D &transform, Turn turn) {
  const Turned t(transform);
  const auto number = [](CGFloat value) { return [NSNumber numberWithDouble:value]; };
  switch (turn) {
    case Turn::kRotationX: return number(t.angleX);
    case Turn::kRotationY: return number(t.angleY);
    case Turn::kRotationZ: return number(t.angleZ);
    case Turn::kScale: return number((t.scaleX + t.scaleY + t.scaleZ) / 3);
    case Turn::kScaleX: return number(t.scaleX);
    case Turn::kScaleY: return number(t.scaleY);
    case Turn::kScaleZ: return number(t.scaleZ);
    case Turn::kMoveX: return number(t.x);
    case Turn::kMoveY: return number(t.y);
    case Turn::kMoveZ: return number(t.z);
    case Turn::kMove: return [NSValue valueWithCGSize:CGSizeMake(t.x, t.y)];
    case Turn::kNone: break;
  }
  return nil;
}

CATransform3D changed(const CATransform3D &transform, Turn turn, id value) {
  Turned t(transform);
  const CGFloat number = [value isKindOfClass:[NSNumber class]] ? [value doubleValue] : 0;
  switch (turn) {
    case Turn::kRotationX: t.angleX = number; break;
    case Turn::kRotationY: t.angleY = number; break;
    case Turn::kRotationZ: t.angleZ = number; break;
    case Turn::kScale: t.scaleX = t.scaleY = t.scaleZ = number; break;
    case Turn::kScaleX: t.scaleX = number; break;
    case Turn::kScaleY: t.scaleY = number; break;
    case Turn::kScaleZ: t.scaleZ = number; break;
    case Turn::kMoveX: t.x = number; break;
    case Turn::kMoveY: t.y = number; break;
    case Turn::kMoveZ: t.z = number; break;
    case Turn::kMove: t.x = [value CGSizeValue].width, t.y = [value CGSizeValue].height; break;
    case Turn::kNone: break;
  }
  return t.whole();
}

}  // namespace

@implementation CALayer (Values)

- (id)valueForKey:(NSString *)key {
  const KeyedValue *value = keyed(key);
  return value ? value->get(self) : [super valueForKey:key];
}

- (void)setValue:(id)value forKey:(NSString *)key {
  if (const KeyedValue *known = keyed(key)) return known->set(self, value);
  [super setValue:value forKey:key];
}

- (id)valueForKeyPath:(NSString *)path {
  if (const Turn turn = turnAt(path); turn != Turn::kNone) return valueOf([self transform], turn);
  const Part *part = partAt(path);
  if (!part) return [super valueForKeyPath:path];
  return [NSNumber numberWithDouble:numbersOf([self valueForKey:part->whole])[part->index]];
}

- (void)setValue:(id)value forKeyPath:(NSString *)path {
  if (const Turn turn = turnAt(path); turn != Turn::kNone) {
    return [self setTransform:changed([self transform], turn, value)];
  }
  const Part *part = partAt(path);
  if (!part) return [super setValue:value forKeyPath:path];
  NSValue *whole = [self valueForKey:part->whole];
  Numbers numbers = numbersOf(whole);
  numbers[part->index] = [value doubleValue];
  [self setValue:valueLike(whole, numbers) forKey:part->whole];
}

@end
