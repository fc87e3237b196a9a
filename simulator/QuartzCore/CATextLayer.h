// Layers of text.
#pragma once

#import <QuartzCore/CALayer.h>

SIM_STATE_TYPE(CATextLayerState);

typedef NSString *CATextLayerAlignmentMode;
typedef NSString *CATextLayerTruncationMode;
CA_EXTERN CATextLayerAlignmentMode const kCAAlignmentNatural;
CA_EXTERN CATextLayerAlignmentMode const kCAAlignmentLeft;
CA_EXTERN CATextLayerAlignmentMode const kCAAlignmentRight;
CA_EXTERN CATextLayerAlignmentMode const kCAAlignmentCenter;
CA_EXTERN CATextLayerAlignmentMode const kCAAlignmentJustified;
CA_EXTERN CATextLayerTruncationMode const kCATruncationNone;
CA_EXTERN CATextLayerTruncationMode const kCATruncationStart;
CA_EXTERN CATextLayerTruncationMode const kCATruncationEnd;
CA_EXTERN CATextLayerTruncationMode const kCATruncationMiddle;

/// Draws from the top, at `contentsScale` pixels a point.
@interface CATextLayer : CALayer {
 @private
  SIM_STATE(CATextLayerState, _textState);
}
/// An NSString or, with attributes of its own, an NSAttributedString.
@property(copy) id string;
/// A UIFont or a font's name; of a UIFont its size does not count. The system font until set.
@property CFTypeRef font;
/// Points; 36 until set.
@property CGFloat fontSize;
/// Opaque white until set.
@property CGColorRef foregroundColor;
/// NO until set: one line.
@property(getter=isWrapped) BOOL wrapped;
@property(copy) CATextLayerTruncationMode truncationMode;
@property(copy) CATextLayerAlignmentMode alignmentMode;
@end
