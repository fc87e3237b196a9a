// A view and its layer: what the view shares with it and draws into it.
#import <UIKit/UIGraphics.h>
#import <UIKit/UIScreen.h>
#import <UIKit/UIView+Sim.h>
#import <UIKit/UIViewState.h>

#include <algorithm>

namespace {

/// Whether the view's class has a method of its own in place of UIView's.
bool overrides(UIView *view, SEL method) {
  return [view methodForSelector:method] != [UIView instanceMethodForSelector:method];
}

}  // namespace

@implementation UIView (UIViewLayer)

+ (Class)layerClass {
  return [CALayer class];
}

- (CALayer *)layer {
  if (!_state->layer) {
    _state->layer = objcxx::adopt((CALayer *)[[[[self class] layerClass] alloc] init]);
    CALayer *layer = _state->layer.get();
    [layer setDelegate:self];
    [layer sim_setOwner:self];
    [layer setContentsScale:[[UIScreen mainScreen] scale]];
    if ([self sim_drawsItself]) [layer setNeedsDisplay];
  }
  return _state->layer.get();
}

- (CALayer *)sim_layerIfMade {
  if (!_state->layer && ([[self class] layerClass] != [CALayer class] || [self sim_drawsItself])) return [self layer];
  return _state->layer.get();
}

- (CGColorRef)sim_layerColor {
  return [[self backgroundColor] CGColor];
}

- (void)sim_setLayerColor:(CGColorRef)color {
  [self setBackgroundColor:color ? [UIColor colorWithCGColor:color] : nil];
}

- (sim::LayerGeometry &)sim_layerGeometry {
  return *_state;
}

- (void)sim_layerSetNeedsLayout {
  [self setNeedsLayout];
}

- (void)sim_layerLayoutIfNeeded {
  [self layoutIfNeeded];
}

- (NSArray *)sim_subviewLayers {
  NSMutableArray *layers = [NSMutableArray arrayWithCapacity:_state->subviews.size()];
  for (const auto &subview : _state->subviews) [layers addObject:[subview.get() layer]];
  return layers;
}

- (CALayer *)sim_superviewLayer {
  return [_state->superview layer];
}

- (void)sim_didPlaceSublayerOf:(UIView *)subview {
  CALayer *layer = _state->layer.get();
  if (![layer sim_hasOwnSublayers]) return;
  const auto &views = _state->subviews;
  auto next = std::find_if(views.begin(), views.end(), [&](const auto &view) { return view.get() == subview; });
  if (next != views.end()) ++next;
  [layer sim_addSubviewLayer:[subview layer] below:next == views.end() ? nil : [next->get() layer]];
}

- (void)sim_didTakeSublayerOf:(UIView *)subview {
  CALayer *layer = _state->layer.get();
  if ([layer sim_hasOwnSublayers]) [layer sim_removeSubviewLayer:[subview layer]];
}

- (void)sim_layoutSublayers {
  if (CALayer *layer = [self sim_layerIfMade]) return [layer layoutSublayers];
  if (overrides(self, @selector(layoutSublayersOfLayer:))) return [[self layer] layoutSublayers];
  [self layoutSubviews];
}

- (void)layoutSublayersOfLayer:(CALayer *)layer {
  if (layer == [self layer]) [self layoutSubviews];
}

- (UIView *)maskView {
  return _state->maskView.get();
}

- (void)setMaskView:(UIView *)view {
  [view removeFromSuperview];
  _state->maskView = objcxx::share(view);
  [[self layer] setMask:[view layer]];
}

- (void)drawRect:(CGRect)rect {
  (void)rect;
}

- (void)setNeedsDisplay {
  if (_state->layer) [_state->layer.get() setNeedsDisplay];
}

- (void)setNeedsDisplayInRect:(CGRect)rect {
  if (!CGRectIsEmpty(rect)) [self setNeedsDisplay];
}

- (void)drawLayer:(CALayer *)layer inContext:(CGContextRef)context {
  if (layer != [self layer]) return;
  UIGraphicsPushContext(context);
  [self sim_performWithTraits:^{
    [self drawRect:self->_state->bounds];
  }];
  UIGraphicsPopContext();
}

- (BOOL)sim_drawsItself {
  return overrides(self, @selector(drawRect:)) || overrides(self, @selector(drawLayer:inContext:)) ||
         [self respondsToSelector:@selector(displayLayer:)];
}

- (void)sim_drawContentInContext:(CGContextRef)context {
  (void)context;
}

@end
