#import <UIKit/UIVisualEffect.h>

@implementation UIVisualEffect

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

@end
