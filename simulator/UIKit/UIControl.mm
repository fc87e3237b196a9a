#import <UIKit/UIAction+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIControlMemory.h>
#import <UIKit/UIEvent.h>
#import <UIKit/UITapGestureRecognizer.h>
#import <UIKit/UITouch.h>
#import <UIKit/UIView+Sim.h>

#include <algorithm>
#include <string_view>

namespace {

// Points around a control in which a finger that came down on it still counts as inside: documented for buttons.
constexpr CGFloat kNear = 70;

bool isAction(SEL one, SEL other) { return one == other || (one && other && sel_isEqual(one, other)); }

bool isHandler(const sim::Binding &binding, NSString *identifier) {
  return binding.handler && [[binding.handler.get() identifier] isEqual:identifier];
}

}  // namespace

@implementation UIControl

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _controlState = std::make_unique<sim::UIControlMemory>();
  return self;
}

- (instancetype)initWithFrame:(CGRect)frame primaryAction:(UIAction *)action {
  if (!(self = [self initWithFrame:frame])) return nil;
  if (action) [self addAction:action forControlEvents:UIControlEventPrimaryActionTriggered];
  return self;
}

- (BOOL)isEnabled {
  return _controlState->enabled;
}

- (void)setEnabled:(BOOL)enabled {
  _controlState->enabled = enabled;
  [self setNeedsLayout];
}

- (BOOL)isSelected {
  return _controlState->selected;
}

- (void)setSelected:(BOOL)selected {
  _controlState->selected = selected;
  [self setNeedsLayout];
}

- (BOOL)isHighlighted {
  return _controlState->highlighted;
}

- (void)setHighlighted:(BOOL)highlighted {
  _controlState->highlighted = highlighted;
  [self setNeedsLayout];
}

- (UIControlContentHorizontalAlignment)contentHorizontalAlignment {
  return _controlState->horizontalAlignment;
}

- (void)setContentHorizontalAlignment:(UIControlContentHorizontalAlignment)alignment {
  _controlState->horizontalAlignment = alignment;
  [self setNeedsLayout];
}

- (UIControlContentVerticalAlignment)contentVerticalAlignment {
  return _controlState->verticalAlignment;
}

- (void)setContentVerticalAlignment:(UIControlContentVerticalAlignment)alignment {
  _controlState->verticalAlignment = alignment;
  [self setNeedsLayout];
}

- (UIControlState)state {
  UIControlState state = UIControlStateNormal;
  if (![self isEnabled]) state |= UIControlStateDisabled;
  if ([self isSelected]) state |= UIControlStateSelected;
  if ([self isHighlighted]) state |= UIControlStateHighlighted;
  return state;
}

- (void)addTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events {
  if (!action) [NSException raise:NSInvalidArgumentException format:@"A target needs an action."];
  auto &bindings = _controlState->bindings;
  const auto same = std::find_if(bindings.begin(), bindings.end(), [&](const sim::Binding &binding) {
    return !binding.handler && binding.target == target && isAction(binding.action, action);
  });
  if (same != bindings.end()) same->events |= events;
  else bindings.push_back({target, action, events, nullptr});
}

- (void)removeTarget:(id)target action:(SEL)action forControlEvents:(UIControlEvents)events {
  auto &bindings = _controlState->bindings;
  for (sim::Binding &binding : bindings) {
    const bool meant =
        !binding.handler && (!target || binding.target == target) && (!action || isAction(binding.action, action));
    if (meant) binding.events &= ~events;
  }
  std::erase_if(bindings, [](const sim::Binding &binding) { return binding.events == 0; });
}

- (void)addAction:(UIAction *)action forControlEvents:(UIControlEvents)events {
  if (!action) [NSException raise:NSInvalidArgumentException format:@"There is no action to add."];
  auto &bindings = _controlState->bindings;
  NSString *identifier = [action identifier];
  const auto same = std::ranges::find_if(bindings, [&](const auto &each) { return isHandler(each, identifier); });
  if (same == bindings.end()) {
    bindings.push_back({nil, nullptr, events, objcxx::share(action)});
  } else {
    same->handler = objcxx::share(action);
    same->events |= events;
  }
}

- (void)removeAction:(UIAction *)action forControlEvents:(UIControlEvents)events {
  [self removeActionForIdentifier:[action identifier] forControlEvents:events];
}

- (void)removeActionForIdentifier:(UIActionIdentifier)identifier forControlEvents:(UIControlEvents)events {
  auto &bindings = _controlState->bindings;
  const auto kept = objcxx::share(identifier);
  for (sim::Binding &binding : bindings) {
    if (isHandler(binding, identifier)) binding.events &= ~events;
  }
  std::erase_if(bindings, [](const sim::Binding &binding) { return binding.events == 0; });
}

- (void)enumerateEventHandlers:(void (^)(UIAction *, id, SEL, UIControlEvents, BOOL *))iterator {
  const std::vector<sim::Binding> bindings = _controlState->bindings;
  BOOL stop = NO;
  for (const sim::Binding &each : bindings) {
    if (stop) return;
    iterator(each.handler.get(), each.target, each.action, each.events, &stop);
  }
}

- (NSSet *)allTargets {
  NSMutableSet *targets = [NSMutableSet set];
  for (const sim::Binding &binding : _controlState->bindings) {
    if (binding.handler) continue;
    [targets addObject:binding.target ? binding.target : [NSNull null]];
  }
  return targets;
}

- (UIControlEvents)allControlEvents {
  UIControlEvents events = 0;
  for (const sim::Binding &binding : _controlState->bindings) events |= binding.events;
  return events;
}

- (NSArray *)actionsForTarget:(id)target forControlEvent:(UIControlEvents)event {
  NSMutableArray *names = [NSMutableArray array];
  for (const sim::Binding &binding : _controlState->bindings) {
    const bool meant = !binding.handler && binding.target == target && (binding.events & event);
    if (meant) [names addObject:NSStringFromSelector(binding.action)];
  }
  return [names count] ? names : nil;
}

- (void)sendActionsForControlEvents:(UIControlEvents)events {
  [self sim_sendActionsForControlEvents:events with:nil];
}

- (void)sendAction:(SEL)action to:(id)target forEvent:(UIEvent *)event {
  id receiver = target;
  for (UIResponder *responder = self; !receiver && responder; responder = [responder nextResponder]) {
    if ([responder respondsToSelector:action]) receiver = responder;
  }
  if (!receiver) return;
  const std::string_view name = sel_getName(action);
  switch (std::count(name.begin(), name.end(), ':')) {
    case 0: [receiver performSelector:action]; break;
    case 1: [receiver performSelector:action withObject:self]; break;
    default: [receiver performSelector:action withObject:self withObject:(id)event]; break;
  }
}

- (void)sendAction:(UIAction *)action {
  [action sim_performFrom:self];
}

- (UIContextMenuConfiguration *)contextMenuInteraction:(UIContextMenuInteraction *)interaction
                        configurationForMenuAtLocation:(CGPoint)location {
  (void)interaction, (void)location;
  return nil;
}

#pragma mark - A finger

- (BOOL)isTracking {
  return _controlState->tracking;
}

- (BOOL)isTouchInside {
  return _controlState->touchInside;
}

- (BOOL)beginTrackingWithTouch:(UITouch *)touch withEvent:(UIEvent *)event {
  (void)touch;
  (void)event;
  return YES;
}

- (BOOL)continueTrackingWithTouch:(UITouch *)touch withEvent:(UIEvent *)event {
  (void)touch;
  (void)event;
  return YES;
}

- (void)endTrackingWithTouch:(UITouch *)touch withEvent:(UIEvent *)event {
  (void)touch;
  (void)event;
}

- (void)cancelTrackingWithEvent:(UIEvent *)event {
  (void)event;
}

- (BOOL)sim_isNear:(UITouch *)touch {
  return CGRectContainsPoint(CGRectInset([self bounds], -kNear, -kNear), [touch locationInView:self]);
}

- (void)touchesBegan:(NSSet *)touches withEvent:(UIEvent *)event {
  if (![self isEnabled]) return;
  const auto kept = objcxx::share(self);
  UITouch *touch = [touches anyObject];
  sim::UIControlMemory &state = *_controlState;
  state.touchInside = true;
  state.tracking = [self beginTrackingWithTouch:touch withEvent:event];
  if (!state.tracking) return;
  [self setHighlighted:YES];
  const bool isRepeated = [touch tapCount] > 1;
  [self sim_sendActionsForControlEvents:UIControlEventTouchDown | (isRepeated ? UIControlEventTouchDownRepeat : 0)
                                   with:event];
}

- (void)touchesMoved:(NSSet *)touches withEvent:(UIEvent *)event {
  sim::UIControlMemory &state = *_controlState;
  if (!state.tracking) return;
  const auto kept = objcxx::share(self);
  const bool wasInside = state.touchInside;
  state.touchInside = [self sim_isNear:[touches anyObject]];
  state.tracking = [self continueTrackingWithTouch:[touches anyObject] withEvent:event];
  if (!state.tracking) {
    [self setHighlighted:NO];
    return;
  }
  UIControlEvents sent = state.touchInside ? UIControlEventTouchDragInside : UIControlEventTouchDragOutside;
  if (wasInside != state.touchInside) {
    sent |= state.touchInside ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit;
    [self setHighlighted:state.touchInside];
  }
  [self sim_sendActionsForControlEvents:sent with:event];
}

- (void)touchesEnded:(NSSet *)touches withEvent:(UIEvent *)event {
  sim::UIControlMemory &state = *_controlState;
  if (!state.tracking) return;
  const auto kept = objcxx::share(self);
  state.touchInside = [self sim_isNear:[touches anyObject]];
  state.tracking = false;
  [self setHighlighted:NO];
  [self endTrackingWithTouch:[touches anyObject] withEvent:event];
  if (!state.touchInside) return [self sim_sendActionsForControlEvents:UIControlEventTouchUpOutside with:event];
  // A device opens it as soon as the finger is down.
  if ([self sim_showsMenu]) {
    [self sim_sendActionsForControlEvents:UIControlEventTouchCancel with:event];
    return [self sim_openMenuAt:[[touches anyObject] locationInView:self]];
  }
  [self sim_changeByTouch:[touches anyObject]];
  [self sim_willTriggerPrimaryAction];
  [self sim_sendActionsForControlEvents:UIControlEventTouchUpInside with:event];
  [self sim_sendActionsForControlEvents:UIControlEventPrimaryActionTriggered with:event];
}

- (void)touchesCancelled:(NSSet *)touches withEvent:(UIEvent *)event {
  (void)touches;
  sim::UIControlMemory &state = *_controlState;
  if (!state.tracking) return;
  const auto kept = objcxx::share(self);
  state.tracking = state.touchInside = false;
  [self setHighlighted:NO];
  [self cancelTrackingWithEvent:event];
  [self sim_sendActionsForControlEvents:UIControlEventTouchCancel with:event];
}

/// A tap is the control's own, and not one of a view above it.
- (BOOL)gestureRecognizerShouldBegin:(UIGestureRecognizer *)recognizer {
  if ([recognizer view] == self || ![self sim_takesTaps]) return YES;
  if (![recognizer isKindOfClass:[UITapGestureRecognizer class]]) return YES;
  const auto tap = (UITapGestureRecognizer *)recognizer;
  return [tap numberOfTapsRequired] != 1 || [tap numberOfTouchesRequired] != 1;
}

@end

@implementation UIControl (Sim)

- (void)sim_sendActionsForControlEvents:(UIControlEvents)events with:(UIEvent *)event {
  // An action may remove bindings, and may be the end of the control or of a later target.
  const auto kept = objcxx::share(self);
  struct Call {
    objcxx::Retained<NSObject> target;
    SEL action;
    objcxx::Retained<UIAction> handler;
  };
  std::vector<Call> calls;
  for (const sim::Binding &binding : _controlState->bindings) {
    if (!(binding.events & events)) continue;
    calls.push_back({objcxx::share((NSObject *)binding.target), binding.action, binding.handler});
  }
  for (const Call &call : calls) {
    if (call.handler) [self sendAction:call.handler.get()];
    else [self sendAction:call.action to:call.target.get() forEvent:event];
  }
}

- (BOOL)sim_takesTaps {
  return NO;
}

- (BOOL)sim_hearsOfTaps {
  return [self allControlEvents] != 0 || [self sim_showsMenu];
}

- (void)sim_willTriggerPrimaryAction {
}

- (void)sim_changeByTouch:(UITouch *)touch {
  (void)touch;
}

- (BOOL)sim_acceptsUser {
  return [self isEnabled] && [self sim_acceptsTouches];
}

- (BOOL)sim_tapByUser {
  if (![self sim_acceptsUser]) return NO;
  const auto kept = objcxx::share(self);
  [self setHighlighted:YES];
  [self sendActionsForControlEvents:UIControlEventTouchDown];
  [self setHighlighted:NO];
  if ([self sim_showsMenu]) {
    [self sendActionsForControlEvents:UIControlEventTouchCancel];
    [self sim_openMenuAt:CGPointMake(CGRectGetMidX([self bounds]), CGRectGetMidY([self bounds]))];
    return YES;
  }
  [self sim_willTriggerPrimaryAction];
  [self sendActionsForControlEvents:UIControlEventTouchUpInside];
  [self sendActionsForControlEvents:UIControlEventPrimaryActionTriggered];
  return YES;
}

@end
