// Views drawn into contexts, with what some of them show themselves.
#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/UIGraphics.h>
#import <UIKit/UIImage+Sim.h>
#import <UIKit/UIImageView+Sim.h>
#import <UIKit/UILabel.h>
#import <UIKit/UIView+Sim.h>

#include <objcxx/Retained.h>

#include <algorithm>

namespace {

/// Where a picture of `size` lies in `bounds`.
CGRect placed(CGSize size, CGRect bounds, UIViewContentMode mode) {
  const CGFloat across = bounds.size.width / size.width;
  const CGFloat down = bounds.size.height / size.height;
  CGFloat factor = 1;
  switch (mode) {
    case UIViewContentModeScaleToFill:
    case UIViewContentModeRedraw: return bounds;
    case UIViewContentModeScaleAspectFit: factor = std::min(across, down); break;
    case UIViewContentModeScaleAspectFill: factor = std::max(across, down); break;
    default: break;
  }
  const CGSize drawn = CGSizeMake(size.width * factor, size.height * factor);
  const auto isOneOf = [&](auto... modes) { return ((mode == modes) || ...); };
  CGFloat x = 0.5, y = 0.5;
  if (isOneOf(UIViewContentModeLeft, UIViewContentModeTopLeft, UIViewContentModeBottomLeft)) x = 0;
  if (isOneOf(UIViewContentModeRight, UIViewContentModeTopRight, UIViewContentModeBottomRight)) x = 1;
  if (isOneOf(UIViewContentModeTop, UIViewContentModeTopLeft, UIViewContentModeTopRight)) y = 0;
  if (isOneOf(UIViewContentModeBottom, UIViewContentModeBottomLeft, UIViewContentModeBottomRight)) y = 1;
  return CGRectMake(bounds.origin.x + (bounds.size.width - drawn.width) * x,
                    bounds.origin.y + (bounds.size.height - drawn.height) * y, drawn.width, drawn.height);
}

}  // namespace

@implementation UIView (UIViewSnapshotting)

- (BOOL)drawViewHierarchyInRect:(CGRect)rect afterScreenUpdates:(BOOL)afterUpdates {
  (void)afterUpdates;
  const CGContextRef context = UIGraphicsGetCurrentContext();
  const CGRect bounds = [self bounds];
  if (!context || CGRectIsEmpty(bounds) || CGRectIsEmpty(rect)) return NO;
  CGContextSaveGState(context);
  CGContextTranslateCTM(context, rect.origin.x, rect.origin.y);
  CGContextScaleCTM(context, rect.size.width / bounds.size.width, rect.size.height / bounds.size.height);
  CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
  [[self layer] renderInContext:context];
  CGContextRestoreGState(context);
  return YES;
}

@end

@implementation UILabel (Rendering)

- (void)sim_drawContentInContext:(CGContextRef)context {
  if ([[self text] length] == 0) return;
  const auto style = objcxx::adopt([[NSMutableParagraphStyle alloc] init]);
  [style.get() setAlignment:[self textAlignment]];
  const bool wraps = [self numberOfLines] != 1;
  [style.get() setLineBreakMode:wraps ? NSLineBreakByWordWrapping : [self lineBreakMode]];
  NSDictionary *attributes = [NSDictionary
      dictionaryWithObjectsAndKeys:[self font], NSFontAttributeName, [self textColor], NSForegroundColorAttributeName,
                                   style.get(), NSParagraphStyleAttributeName, nil];
  const CGRect bounds = [self bounds];
  const CGFloat height = [self textRectForBounds:bounds limitedToNumberOfLines:[self numberOfLines]].size.height;
  UIGraphicsPushContext(context);
  [[self text] drawInRect:CGRectMake(bounds.origin.x, bounds.origin.y + (bounds.size.height - height) / 2,
                                     bounds.size.width, height)
           withAttributes:attributes];
  UIGraphicsPopContext();
}

@end

@implementation UIImageView (Rendering)

- (void)sim_drawContentInContext:(CGContextRef)context {
  UIImage *image = [self sim_shownImage];
  if (!image || [image size].width <= 0 || [image size].height <= 0) return;
  if ([image sim_isTemplate]) image = [image imageWithTintColor:[self tintColor]];
  UIGraphicsPushContext(context);
  [image drawInRect:placed([image size], [self bounds], [self contentMode])];
  UIGraphicsPopContext();
}

@end
