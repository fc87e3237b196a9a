// Attributes of text, paragraph styles, and measuring and drawing of strings.
#pragma once

#import <CoreGraphics/CGGeometry.h>
#import <UIKit/NSText.h>

/// UIFont; 12 points when absent.
UIKIT_EXTERN NSAttributedStringKey const NSFontAttributeName;
/// UIColor; black when absent.
UIKIT_EXTERN NSAttributedStringKey const NSForegroundColorAttributeName;
/// NSParagraphStyle.
UIKIT_EXTERN NSAttributedStringKey const NSParagraphStyleAttributeName;

@interface NSParagraphStyle : NSObject <NSCopying, NSMutableCopying> {
 @protected
  NSTextAlignment _alignment;
  NSLineBreakMode _lineBreakMode;
  CGFloat _lineSpacing;
}
+ (NSParagraphStyle *)defaultParagraphStyle;
@property(nonatomic, readonly) NSTextAlignment alignment;
@property(nonatomic, readonly) NSLineBreakMode lineBreakMode;
/// Points between lines.
@property(nonatomic, readonly) CGFloat lineSpacing;
@end

@interface NSMutableParagraphStyle : NSParagraphStyle
@property(nonatomic) NSTextAlignment alignment;
@property(nonatomic) NSLineBreakMode lineBreakMode;
@property(nonatomic) CGFloat lineSpacing;
@end

typedef NS_OPTIONS(NSInteger, NSStringDrawingOptions) {
  NSStringDrawingUsesLineFragmentOrigin = 1 << 0,
  NSStringDrawingUsesFontLeading = 1 << 1,
  NSStringDrawingTruncatesLastVisibleLine = 1 << 5,
};

@class NSStringDrawingContext;

@interface NSString (NSExtendedStringDrawing)
/// The text's size in points without wrapping, not rounded.
- (CGSize)sizeWithAttributes:(NSDictionary *)attributes;
/// With NSStringDrawingUsesLineFragmentOrigin wrapped to the width given, else as sizeWithAttributes:. A width or
/// height of 0 or less means no limit. `context` must be nil.
- (CGRect)boundingRectWithSize:(CGSize)size
                       options:(NSStringDrawingOptions)options
                    attributes:(NSDictionary *)attributes
                       context:(NSStringDrawingContext *)context;
/// Into the current image context; nothing without one.
- (void)drawAtPoint:(CGPoint)point withAttributes:(NSDictionary *)attributes;
- (void)drawInRect:(CGRect)rect withAttributes:(NSDictionary *)attributes;
@end
