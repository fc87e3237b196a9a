#import <UIKit/UITableViewHeaderFooterView+Sim.h>

#import <UIKit/UIFont.h>
#import <UIKit/UILabel.h>
#include <objcxx/Retained.h>

#include <algorithm>

namespace sim {
struct HeaderFooterViewState {
  objcxx::Retained<NSString> reuseIdentifier;
  objcxx::Retained<UIView> contentView;
  objcxx::Retained<UIView> backgroundView;
  objcxx::Retained<UILabel> textLabel;
  objcxx::Retained<UILabel> detailTextLabel;
};
}  // namespace sim

namespace {
constexpr CGFloat margin = 16;
constexpr CGFloat verticalPadding = 14;
}  // namespace

@implementation UITableViewHeaderFooterView

- (instancetype)initWithReuseIdentifier:(NSString *)reuseIdentifier {
  if (!(self = [super initWithFrame:CGRectMake(0, 0, 320, 28)])) return nil;

  _headerFooterState = std::make_unique<sim::HeaderFooterViewState>();
  _headerFooterState->reuseIdentifier = objcxx::adopt((NSString *)[reuseIdentifier copy]);
  _headerFooterState->contentView = objcxx::adopt([[UIView alloc] initWithFrame:[self bounds]]);
  [self addSubview:_headerFooterState->contentView.get()];
  return self;
}

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [self initWithReuseIdentifier:nil])) return nil;

  [self setFrame:frame];
  return self;
}

- (instancetype)init {
  return [self initWithReuseIdentifier:nil];
}

- (NSString *)reuseIdentifier {
  return _headerFooterState->reuseIdentifier.get();
}

- (void)sim_setReuseIdentifier:(NSString *)reuseIdentifier {
  _headerFooterState->reuseIdentifier = objcxx::adopt((NSString *)[reuseIdentifier copy]);
}

- (void)prepareForReuse {
}

- (UIView *)contentView {
  return _headerFooterState->contentView.get();
}

- (UILabel *)sim_makeLabel {
  UILabel *label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectZero]).autoreleased();
  [label setFont:[UIFont systemFontOfSize:13]];
  [label setTextColor:[UIColor secondaryLabelColor]];
  [label setNumberOfLines:0];
  [_headerFooterState->contentView.get() addSubview:label];
  [self setNeedsLayout];
  return label;
}

- (UILabel *)textLabel {
  if (!_headerFooterState->textLabel) _headerFooterState->textLabel = objcxx::share([self sim_makeLabel]);
  return _headerFooterState->textLabel.get();
}

- (UILabel *)detailTextLabel {
  if (!_headerFooterState->detailTextLabel) _headerFooterState->detailTextLabel = objcxx::share([self sim_makeLabel]);
  return _headerFooterState->detailTextLabel.get();
}

- (UIView *)backgroundView {
  return _headerFooterState->backgroundView.get();
}

- (void)setBackgroundView:(UIView *)view {
  if (_headerFooterState->backgroundView.get() == view) return;
  [_headerFooterState->backgroundView.get() removeFromSuperview];
  _headerFooterState->backgroundView = objcxx::share(view);
  if (view) [self insertSubview:view atIndex:0];
  [self setNeedsLayout];
}

- (void)layoutSubviews {
  [super layoutSubviews];
  const CGRect bounds = [self bounds];
  [_headerFooterState->backgroundView.get() setFrame:bounds];
  [_headerFooterState->contentView.get() setFrame:bounds];
  CGFloat top = verticalPadding / 2;
  const CGFloat width = std::max<CGFloat>(bounds.size.width - 2 * margin, 0);
  for (UILabel *label : {_headerFooterState->textLabel.get(), _headerFooterState->detailTextLabel.get()}) {
    if (!label) continue;
    const CGFloat height = [label sizeThatFits:CGSizeMake(width, CGFLOAT_MAX)].height;
    [label setFrame:CGRectMake(margin, top, width, height)];
    top += height;
  }
}

- (CGSize)sizeThatFits:(CGSize)size {
  const CGFloat width = size.width > 0 ? size.width : [self bounds].size.width;
  CGFloat height = 0;
  for (UILabel *label : {_headerFooterState->textLabel.get(), _headerFooterState->detailTextLabel.get()}) {
    if ([[label text] length] == 0) continue;
    height += [label sizeThatFits:CGSizeMake(std::max<CGFloat>(width - 2 * margin, 0), CGFLOAT_MAX)].height;
  }
  return CGSizeMake(width, height > 0 ? height + verticalPadding : 0);
}

@end
