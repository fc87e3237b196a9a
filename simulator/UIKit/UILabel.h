// A view that shows text.
#pragma once

#import <UIKit/NSText.h>
#import <UIKit/UIFont.h>
#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

SIM_STATE_TYPE(UILabelState);

@interface UILabel : UIView {
 @private
  SIM_STATE(UILabelState, _labelState);
}
@property(nonatomic, copy) NSString *text;
/// What its attributes leave open is as it was set on the label. Its first character's font, colour and alignment
/// become the label's own, and setting those of the label gives them to the whole text. Setting `text` drops it.
@property(nonatomic, copy) NSAttributedString *attributedText;
/// System font of 17 points; nil sets that back.
@property(nonatomic, retain) UIFont *font;
/// The label colour; nil sets that back.
@property(nonatomic, retain) UIColor *textColor;
@property(nonatomic, retain) UIColor *highlightedTextColor;
@property(nonatomic, getter=isHighlighted) BOOL highlighted;
@property(nonatomic, getter=isEnabled) BOOL enabled;
@property(nonatomic, retain) UIColor *shadowColor;
@property(nonatomic) CGSize shadowOffset;
/// Natural.
@property(nonatomic) NSTextAlignment textAlignment;
/// Truncating tail.
@property(nonatomic) NSLineBreakMode lineBreakMode;
/// 1; 0 means no limit.
@property(nonatomic) NSInteger numberOfLines;
@property(nonatomic) BOOL adjustsFontSizeToFitWidth;
@property(nonatomic) CGFloat minimumScaleFactor;
/// Points; 0 when not set.
@property(nonatomic) CGFloat preferredMaxLayoutWidth;
/// The rectangle that the text fills below `bounds`, in whole pixels, vertically centred as it is drawn.
- (CGRect)textRectForBounds:(CGRect)bounds limitedToNumberOfLines:(NSInteger)numberOfLines;
@end
