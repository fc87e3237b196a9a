#import "cells/ZunoFooterCell.h"

#import "cells/CreditLabel.h"
#import "cells/NorvikPackage.h"

namespace {

// Lengths in points.
constexpr CGFloat kRowHeight = 25;
constexpr CGFloat kFrameHeight = 15;

}  // namespace

@implementation ZunoFooterCell

- (instancetype)initWithSpecifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"Cell"])) return nil;

  NSString *version = [[NorvikPackage packageWithIdentifier:@"com.norvik.Zuno" isRootPackage:YES] version];
  NSString *text = [NSString stringWithFormat:@"© %s Norvik · Zuno %@", "2023", version];
  mainTitleLabel = [zuno::creditLabel(CGRectMake(0, 0, [self bounds].size.width, kFrameHeight),
                                      [UIFont systemFontOfSize:12], text) retain];
  [mainTitleLabel setTextColor:[UIColor grayColor]];
  [self addSubview:mainTitleLabel];
  return self;
}

- (void)dealloc {
  [mainTitleLabel release];
  [super dealloc];
}

- (CGFloat)preferredHeightForWidth:(CGFloat)width {
  return kRowHeight;
}

- (CGRect)frame {
  const CGRect own = [super frame];
  UIView *superview = [self superview];
  return superview ? CGRectMake(0, own.origin.y, [superview frame].size.width, kFrameHeight) : own;
}

- (void)setFrame:(CGRect)frame {
  [super setFrame:CGRectMake(0, frame.origin.y, [[self superview] frame].size.width, kFrameHeight)];
}

- (void)layoutSubviews {
  [super layoutSubviews];
}

@end
