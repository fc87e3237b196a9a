#import <UIKit/FrameworkSupport.h>
#import <UIKit/UITableViewHeaderFooterView+Sim.h>

#import "LayoutProblem.h"

#import <UIKit/UIFont.h>
#import <UIKit/UILabel.h>
#import <UIKit/UIViewLayout.h>
#include <objcxx/Retained.h>

#include <algorithm>
#include <array>

namespace sim {
struct HeaderFooterViewState {
  objcxx::Retained<NSString> reuseIdentifier;
  objcxx::Retained<UIView> contentView;
  objcxx::Retained<UIView> backgroundView;
  objcxx::Retained<UILabel> textLabel;
  objcxx::Retained<UILabel> detailTextLabel;
  UIEdgeInsets textInsets{7, 16, 7, 16};
  BOOL textAtBottom = NO;

  std::array<UILabel *, 2> labels() const { return {textLabel.get(), detailTextLabel.get()}; }
  /// What the texts take in a view of this width, one below the other.
  CGFloat textHeight(CGFloat width) const {
    CGFloat height = 0;
    for (UILabel *label : labels()) height += [label sizeThatFits:CGSizeMake(textWidth(width), CGFLOAT_MAX)].height;
    return height;
  }
  CGFloat textWidth(CGFloat width) const { return std::max<CGFloat>(width - textInsets.left - textInsets.right, 0); }
};
}  // namespace sim

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

- (void)sim_setTextInsets:(UIEdgeInsets)insets atBottom:(BOOL)atBottom {
  _headerFooterState->textInsets = insets;
  _headerFooterState->textAtBottom = atBottom;
  [self setNeedsLayout];
}

- (void)prepareForReuse {
}

- (UIView *)contentView {
  return _headerFooterState->contentView.get();
}

- (UILabel *)sim_makeLabel {
  UILabel *label = objcxx::adopt([[UILabel alloc] initWithFrame:CGRectZero]).autoreleased();
  const sim::SystemSets system;
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
  const auto &state = *_headerFooterState;
  const CGRect bounds = [self bounds];
  [state.backgroundView.get() setFrame:bounds];
  [state.contentView.get() setFrame:bounds];
  const CGFloat width = state.textWidth(bounds.size.width);
  CGFloat top = state.textInsets.top;
  if (state.textAtBottom) top = bounds.size.height - state.textInsets.bottom - state.textHeight(bounds.size.width);
  for (UILabel *label : state.labels()) {
    const CGFloat height = [label sizeThatFits:CGSizeMake(width, CGFLOAT_MAX)].height;
    [label setFrame:CGRectMake(state.textInsets.left, top, width, height)];
    top += height;
  }
}

/// By the constraints in the content view when they say how high it is, else by the texts.
- (CGSize)systemLayoutSizeFittingSize:(CGSize)targetSize
        withHorizontalFittingPriority:(UILayoutPriority)horizontalFittingPriority
              verticalFittingPriority:(UILayoutPriority)verticalFittingPriority {
  [self updateConstraintsIfNeeded];
  UIView *content = _headerFooterState->contentView.get();
  if (!sim::constraintsSayHeight(content)) return [self sizeThatFits:targetSize];
  return [content systemLayoutSizeFittingSize:targetSize
                withHorizontalFittingPriority:horizontalFittingPriority
                      verticalFittingPriority:verticalFittingPriority];
}

- (UIEdgeInsets)sim_defaultMarginsOfSubview:(UIView *)subview {
  if (subview != _headerFooterState->contentView.get()) return [super sim_defaultMarginsOfSubview:subview];
  return _headerFooterState->textInsets;
}

- (CGSize)sizeThatFits:(CGSize)size {
  const auto &state = *_headerFooterState;
  const CGFloat width = size.width > 0 ? size.width : [self bounds].size.width;
  const CGFloat height = state.textHeight(width);
  return CGSizeMake(width, height > 0 ? height + state.textInsets.top + state.textInsets.bottom : 0);
}

@end
