// How the lines of a paragraph are made and stand.
#pragma once

#import <CoreGraphics/CGGeometry.h>
#import <UIKit/NSText.h>

/// Lengths in points.
@interface NSParagraphStyle : NSObject <NSCopying, NSMutableCopying> {
 @protected
  NSTextAlignment _alignment;
  NSLineBreakMode _lineBreakMode;
  CGFloat _lineSpacing;
  CGFloat _paragraphSpacing;
  CGFloat _paragraphSpacingBefore;
  CGFloat _firstLineHeadIndent;
  CGFloat _headIndent;
  CGFloat _tailIndent;
  CGFloat _minimumLineHeight;
  CGFloat _maximumLineHeight;
  CGFloat _lineHeightMultiple;
}
@property(class, nonatomic, readonly, copy) NSParagraphStyle *defaultParagraphStyle;
/// Natural.
@property(nonatomic, readonly) NSTextAlignment alignment;
/// Word wrapping.
@property(nonatomic, readonly) NSLineBreakMode lineBreakMode;
/// Between lines.
@property(nonatomic, readonly) CGFloat lineSpacing;
/// Below the paragraph, when another follows.
@property(nonatomic, readonly) CGFloat paragraphSpacing;
/// Above it, when another precedes.
@property(nonatomic, readonly) CGFloat paragraphSpacingBefore;
@property(nonatomic, readonly) CGFloat firstLineHeadIndent;
@property(nonatomic, readonly) CGFloat headIndent;
/// Where lines end: above 0 from the left edge, else from the right.
@property(nonatomic, readonly) CGFloat tailIndent;
@property(nonatomic, readonly) CGFloat minimumLineHeight;
/// 0: no limit.
@property(nonatomic, readonly) CGFloat maximumLineHeight;
/// Of the natural height, before that is limited; 0 leaves it.
@property(nonatomic, readonly) CGFloat lineHeightMultiple;
@end

@interface NSMutableParagraphStyle : NSParagraphStyle
@property(nonatomic) NSTextAlignment alignment;
@property(nonatomic) NSLineBreakMode lineBreakMode;
@property(nonatomic) CGFloat lineSpacing;
@property(nonatomic) CGFloat paragraphSpacing;
@property(nonatomic) CGFloat paragraphSpacingBefore;
@property(nonatomic) CGFloat firstLineHeadIndent;
@property(nonatomic) CGFloat headIndent;
@property(nonatomic) CGFloat tailIndent;
@property(nonatomic) CGFloat minimumLineHeight;
@property(nonatomic) CGFloat maximumLineHeight;
@property(nonatomic) CGFloat lineHeightMultiple;
- (void)setParagraphStyle:(NSParagraphStyle *)obj;
@end
