// Attributes of text, and measuring and drawing of strings.
#pragma once

#import <CoreGraphics/CGGeometry.h>
#import <UIKit/NSParagraphStyle.h>
#import <UIKit/NSText.h>

/// UIFont; 12 points when absent.
UIKIT_EXTERN NSAttributedStringKey const NSFontAttributeName;
/// NSParagraphStyle, of the character with which a paragraph begins.
UIKIT_EXTERN NSAttributedStringKey const NSParagraphStyleAttributeName;
/// UIColor; black when absent.
UIKIT_EXTERN NSAttributedStringKey const NSForegroundColorAttributeName;
/// UIColor; none when absent.
UIKIT_EXTERN NSAttributedStringKey const NSBackgroundColorAttributeName;
/// NSNumber: points behind each character.
UIKIT_EXTERN NSAttributedStringKey const NSKernAttributeName;
/// NSNumber with an NSUnderlineStyle.
UIKIT_EXTERN NSAttributedStringKey const NSStrikethroughStyleAttributeName;
UIKIT_EXTERN NSAttributedStringKey const NSUnderlineStyleAttributeName;
/// UIColor; the text's when absent.
UIKIT_EXTERN NSAttributedStringKey const NSUnderlineColorAttributeName;
UIKIT_EXTERN NSAttributedStringKey const NSStrikethroughColorAttributeName;
/// NSShadow.
UIKIT_EXTERN NSAttributedStringKey const NSShadowAttributeName;
/// NSTextAttachment, of the character NSAttachmentCharacter.
UIKIT_EXTERN NSAttributedStringKey const NSAttachmentAttributeName;
/// NSURL or NSString. Drawn in the link colour, underlined in labels.
UIKIT_EXTERN NSAttributedStringKey const NSLinkAttributeName;
/// NSNumber: points above the baseline.
UIKIT_EXTERN NSAttributedStringKey const NSBaselineOffsetAttributeName;

typedef NS_OPTIONS(NSInteger, NSStringDrawingOptions) {
  NSStringDrawingUsesLineFragmentOrigin = 1 << 0,
  NSStringDrawingUsesFontLeading = 1 << 1,
  NSStringDrawingTruncatesLastVisibleLine = 1 << 5,
};

@class NSStringDrawingContext;

/// Drawing goes into the current image context; nothing without one. `context` must be nil.
@interface NSString (NSExtendedStringDrawing)
/// The text's size in points without wrapping, not rounded.
- (CGSize)sizeWithAttributes:(NSDictionary *)attributes;
/// With NSStringDrawingUsesLineFragmentOrigin wrapped to the width given, else as sizeWithAttributes:. A width or
/// height of 0 or less means no limit.
- (CGRect)boundingRectWithSize:(CGSize)size
                       options:(NSStringDrawingOptions)options
                    attributes:(NSDictionary *)attributes
                       context:(NSStringDrawingContext *)context;
- (void)drawAtPoint:(CGPoint)point withAttributes:(NSDictionary *)attributes;
- (void)drawInRect:(CGRect)rect withAttributes:(NSDictionary *)attributes;
- (void)drawWithRect:(CGRect)rect
             options:(NSStringDrawingOptions)options
          attributes:(NSDictionary *)attributes
             context:(NSStringDrawingContext *)context;
@end

@interface NSAttributedString (NSStringDrawing)
- (CGSize)size;
- (void)drawAtPoint:(CGPoint)point;
- (void)drawInRect:(CGRect)rect;
- (CGRect)boundingRectWithSize:(CGSize)size
                       options:(NSStringDrawingOptions)options
                       context:(NSStringDrawingContext *)context;
/// Without NSStringDrawingUsesLineFragmentOrigin one line, whose baseline begins at the rectangle's origin.
- (void)drawWithRect:(CGRect)rect options:(NSStringDrawingOptions)options context:(NSStringDrawingContext *)context;
@end
