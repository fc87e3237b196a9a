#import <UIKit/UILayoutGuide.h>

#import "LayoutProblem.h"

#import <UIKit/LayoutState.h>
#import <UIKit/NSLayoutAnchor+Sim.h>
#import <UIKit/UIScrollView.h>
#import <UIKit/UIViewLayout.h>

@implementation UILayoutGuide

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _guideState = std::make_unique<sim::LayoutGuideState>(self);
  return self;
}

- (instancetype)sim_initWithKind:(sim::GuideKind)kind owner:(UIView *)owner {
  if (!(self = [self init])) return nil;
  _guideState->kind = kind;
  _guideState->owner = owner;
  return self;
}

- (sim::LayoutGuideState &)sim_state {
  return *_guideState;
}

- (UIView *)owningView {
  return _guideState->owner;
}

- (void)setOwningView:(UIView *)view {
  if (_guideState->owner == view) return;
  const auto kept = objcxx::share(self);
  [_guideState->owner removeLayoutGuide:self];
  [view addLayoutGuide:self];
}

- (NSString *)identifier {
  return _guideState->identifier.get();
}

- (void)setIdentifier:(NSString *)identifier {
  _guideState->identifier = objcxx::adopt((NSString *)[identifier copy]);
}

- (CGRect)layoutFrame {
  UIView *owner = _guideState->owner;
  if (!owner) return CGRectZero;
  const CGRect bounds = [owner bounds];
  const UIEdgeInsets safeArea = [owner safeAreaInsets];
  switch (_guideState->kind) {
    case sim::GuideKind::kCustom: sim::solve(_guideState->item); return sim::placeOf(_guideState->item);
    case sim::GuideKind::kSafeArea: return UIEdgeInsetsInsetRect(bounds, safeArea);
    case sim::GuideKind::kMargins: return UIEdgeInsetsInsetRect(bounds, [owner layoutMargins]);
    case sim::GuideKind::kReadable: return UIEdgeInsetsInsetRect(bounds, sim::readableInsets(owner));
    case sim::GuideKind::kTop: return CGRectMake(bounds.origin.x, bounds.origin.y, bounds.size.width, safeArea.top);
    case sim::GuideKind::kBottom:
      return CGRectMake(bounds.origin.x, CGRectGetMaxY(bounds) - safeArea.bottom, bounds.size.width, safeArea.bottom);
    case sim::GuideKind::kScrollContent: return {CGPointZero, [(UIScrollView *)owner contentSize]};
    case sim::GuideKind::kScrollFrame: return bounds;
  }
  return CGRectZero;
}

/// What the guide of a controller's bar answers, as UILayoutSupport.
- (CGFloat)length {
  return [self layoutFrame].size.height;
}

- (NSLayoutXAxisAnchor *)leadingAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeLeading);
}

- (NSLayoutXAxisAnchor *)trailingAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeTrailing);
}

- (NSLayoutXAxisAnchor *)leftAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeLeft);
}

- (NSLayoutXAxisAnchor *)rightAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeRight);
}

- (NSLayoutYAxisAnchor *)topAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeTop);
}

- (NSLayoutYAxisAnchor *)bottomAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeBottom);
}

- (NSLayoutDimension *)widthAnchor {
  return (NSLayoutDimension *)sim::anchorOf(self, NSLayoutAttributeWidth);
}

- (NSLayoutDimension *)heightAnchor {
  return (NSLayoutDimension *)sim::anchorOf(self, NSLayoutAttributeHeight);
}

- (NSLayoutXAxisAnchor *)centerXAnchor {
  return (NSLayoutXAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeCenterX);
}

- (NSLayoutYAxisAnchor *)centerYAnchor {
  return (NSLayoutYAxisAnchor *)sim::anchorOf(self, NSLayoutAttributeCenterY);
}

@end
