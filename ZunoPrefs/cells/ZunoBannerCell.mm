#import "cells/ZunoBannerCell.h"

#import "cells/CreditLabel.h"
#import "core/DevicePaths.h"

namespace {

// Lengths in points.
constexpr CGFloat kRowHeight = 150;
constexpr CGFloat kFrameHeight = 195;
constexpr CGFloat kIconTop = 15;
constexpr CGFloat kIconHeight = 100;
constexpr CGFloat kGap = 5;
constexpr CGFloat kLineHeight = 50;  // Until the text has been measured.

UIImage *loadIcon() {
  return
      [UIImage imageWithContentsOfFile:[zuno::settingsBundleFolder() stringByAppendingPathComponent:@"icon-large.png"]];
}

/// Gives the label the height of its text and the whole width.
void fitHeight(UILabel *label, CGFloat top, CGFloat width) {
  [label sizeToFit];
  [label setFrame:CGRectMake(0, top, width, [label frame].size.height)];
}

}  // namespace

@implementation ZunoBannerCell

@synthesize bannerView = _bannerView;

- (instancetype)initWithSpecifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"Cell"])) return nil;

  const CGFloat width = [self bounds].size.width;
  _bannerView = [[UIImageView alloc] initWithFrame:CGRectMake(0, kIconTop, width, kIconHeight)];
  [_bannerView setContentMode:UIViewContentModeScaleAspectFit];
  [_bannerView setImage:loadIcon()];
  unmaskedImage = [loadIcon() retain];
  [_bannerView setCenter:CGPointMake(width * 0.5, [_bannerView center].y)];
  [_bannerView setAutoresizingMask:UIViewAutoresizingFlexibleWidth];

  const CGFloat titleTop = [_bannerView frame].size.height + kIconTop + kGap;
  mainTitleLabel =
      [zuno::creditLabel(CGRectMake(0, titleTop, width, kLineHeight), [UIFont systemFontOfSize:35], @"Zuno") retain];
  fitHeight(mainTitleLabel, titleTop, width);

  const CGFloat creditTop = [mainTitleLabel frame].size.height + titleTop + kGap;
  subTitleLabel = [zuno::creditLabel(CGRectMake(0, creditTop, width, kLineHeight), [UIFont systemFontOfSize:16],
                                     @"by Norvik") retain];
  [subTitleLabel setTextColor:[UIColor grayColor]];
  fitHeight(subTitleLabel, creditTop, width);

  [self addSubview:mainTitleLabel];
  [self addSubview:subTitleLabel];
  [self addSubview:_bannerView];
  return self;
}

- (void)dealloc {
  [mainTitleLabel release];
  [subTitleLabel release];
  [subSubTitleLabel release];
  [unmaskedImage release];
  [prevRadiusRequest release];
  [prevScaleRequest release];
  [_bannerView release];
  [super dealloc];
}

- (CGFloat)preferredHeightForWidth:(CGFloat)width {
  return kRowHeight;
}

- (UIImage *)roundedRectImageFromImage:(UIImage *)image withRadius:(CGFloat)radius {
  if (radius == 0) return image;

  const CGRect rect = {CGPointZero, [image size]};
  UIGraphicsBeginImageContextWithOptions(rect.size, NO, [[UIScreen mainScreen] scale]);
  [[UIBezierPath bezierPathWithRoundedRect:rect cornerRadius:radius] addClip];
  [image drawInRect:rect];
  UIImage *rounded = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return rounded;
}

- (CGRect)frame {
  UIView *superview = [self superview];
  return superview ? CGRectMake(0, 0, [superview frame].size.width, kFrameHeight) : [super frame];
}

- (void)setFrame:(CGRect)frame {
  [super setFrame:CGRectMake(0, 0, [[self superview] frame].size.width, kFrameHeight)];
}

- (void)layoutSubviews {
  [super layoutSubviews];
}

- (void)didMoveToSuperview {
  [super didMoveToSuperview];
  [self layoutSubviews];
  [self setFrame:[self frame]];
  [self layoutSubviews];
}

@end
