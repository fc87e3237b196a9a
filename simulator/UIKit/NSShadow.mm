#import <UIKit/NSShadow.h>
#import <UIKit/UIColor.h>

@implementation NSShadow
@synthesize shadowOffset = _shadowOffset;
@synthesize shadowBlurRadius = _shadowBlurRadius;
@synthesize shadowColor = _shadowColor;

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _shadowColor = [[UIColor colorWithWhite:0 alpha:1.0 / 3] retain];
  return self;
}

- (void)dealloc {
  [_shadowColor release];
  [super dealloc];
}

- (id)copyWithZone:(NSZone *)zone {
  NSShadow *copy = [[NSShadow allocWithZone:zone] init];
  [copy setShadowOffset:_shadowOffset];
  [copy setShadowBlurRadius:_shadowBlurRadius];
  [copy setShadowColor:_shadowColor];
  return copy;
}

- (BOOL)isEqual:(id)object {
  if (![object isKindOfClass:[NSShadow class]]) return NO;
  NSShadow *other = object;
  return CGSizeEqualToSize(_shadowOffset, [other shadowOffset]) && _shadowBlurRadius == [other shadowBlurRadius] &&
         (_shadowColor == [other shadowColor] || [_shadowColor isEqual:[other shadowColor]]);
}

- (NSUInteger)hash {
  return NSUInteger(_shadowBlurRadius * 8) + [_shadowColor hash];
}

@end
