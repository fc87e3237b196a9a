#import "LanternHeaderView.h"

@interface LanternHeaderView ()

@property(nonatomic, strong) UILabel *titleLabel;
@property(nonatomic, strong) UILabel *subtitleLabel;

@end

@implementation LanternHeaderView

- (instancetype)initWithTitle:(NSString *)title subtitle:(NSString *)subtitle {
  if ((self = [super initWithFrame:CGRectMake(0, 0, 320, 120)])) {
    _titleLabel = [self labelWithText:title font:[UIFont boldSystemFontOfSize:34]];
    _subtitleLabel = [self labelWithText:subtitle font:[UIFont systemFontOfSize:15]];
    _subtitleLabel.textColor = UIColor.secondaryLabelColor;
  }
  return self;
}

- (UILabel *)labelWithText:(NSString *)text font:(UIFont *)font {
  UILabel *label = [[UILabel alloc] initWithFrame:CGRectZero];
  label.text = text;
  label.font = font;
  label.textAlignment = NSTextAlignmentCenter;
  [self addSubview:label];
  return label;
}

- (void)layoutSubviews {
  [super layoutSubviews];
  CGFloat width = self.bounds.size.width;
  self.titleLabel.frame = CGRectMake(0, 28, width, 42);
  self.subtitleLabel.frame = CGRectMake(0, 72, width, 20);
}

@end
