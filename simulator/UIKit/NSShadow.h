// The shadow of a text.
#pragma once

#import <CoreGraphics/CGGeometry.h>
#import <UIKit/UIKitDefines.h>

@interface NSShadow : NSObject <NSCopying> {
 @private
  CGSize _shadowOffset;
  CGFloat _shadowBlurRadius;
  id _shadowColor;
}
/// Points.
@property(nonatomic, assign) CGSize shadowOffset;
/// Points; 0.
@property(nonatomic, assign) CGFloat shadowBlurRadius;
/// A UIColor; black with a third of its opacity. nil: no shadow.
@property(nonatomic, retain) id shadowColor;
@end
