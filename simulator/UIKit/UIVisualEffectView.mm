#import <UIKit/UIVisualEffectView.h>

#include <objcxx/Retained.h>

namespace sim {

struct UIVisualEffectViewState {
  objcxx::Retained<UIVisualEffect> effect;
  objcxx::Retained<UIView> contentView;
};

}  // namespace sim

@implementation UIVisualEffectView

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _effectState = std::make_unique<sim::UIVisualEffectViewState>();
  _effectState->contentView = objcxx::adopt([[UIView alloc] initWithFrame:[self bounds]]);
  UIView *content = _effectState->contentView.get();
  [content setAutoresizingMask:UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight];
  [super insertSubview:content atIndex:0];
  return self;
}

- (instancetype)initWithEffect:(UIVisualEffect *)effect {
  if (!(self = [self initWithFrame:CGRectZero])) return nil;
  [self setEffect:effect];
  return self;
}

- (UIView *)contentView {
  return _effectState->contentView.get();
}

- (UIVisualEffect *)effect {
  return _effectState->effect.get();
}

- (void)setEffect:(UIVisualEffect *)effect {
  _effectState->effect = objcxx::adopt((UIVisualEffect *)[effect copy]);
}

/// A device raises an exception.
- (void)insertSubview:(UIView *)view atIndex:(NSInteger)index {
  if (!view || view == [self contentView]) return [super insertSubview:view atIndex:index];
  NSLog(@"%@ was not added to %@: views are added to the contentView of a visual effect view.", [view class],
        [self class]);
}

@end
