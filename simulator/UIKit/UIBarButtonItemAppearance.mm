#import <UIKit/UIBarAppearance+Sim.h>

#include <objcxx/Retained.h>

#include <array>

namespace sim {

struct BarButtonStateAppearanceState {
  objcxx::Retained<NSDictionary> attributes = objcxx::share(@{});
  UIOffset offset = UIOffsetZero;
  UIBarAppearance *owner = nil;  // Not owned; cleared by the bar's look.
};

struct BarButtonItemAppearanceState {
  std::array<objcxx::Retained<UIBarButtonItemStateAppearance>, 4> states;  // normal, highlighted, disabled, focused
};

}  // namespace sim

@implementation UIBarButtonItemStateAppearance

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _stateAppearanceState = std::make_unique<sim::BarButtonStateAppearanceState>();
  return self;
}

- (NSDictionary *)titleTextAttributes {
  return _stateAppearanceState->attributes.get();
}

- (void)setTitleTextAttributes:(NSDictionary *)attributes {
  _stateAppearanceState->attributes = objcxx::adopt((NSDictionary *)[attributes ?: @{} copy]);
  [_stateAppearanceState->owner sim_didChange];
}

- (UIOffset)titlePositionAdjustment {
  return _stateAppearanceState->offset;
}

- (void)setTitlePositionAdjustment:(UIOffset)offset {
  _stateAppearanceState->offset = offset;
  [_stateAppearanceState->owner sim_didChange];
}

- (void)sim_setOwner:(UIBarAppearance *)owner {
  _stateAppearanceState->owner = owner;
}

@end

@implementation UIBarButtonItemAppearance

- (instancetype)init {
  return [self initWithStyle:UIBarButtonItemStylePlain];
}

- (instancetype)initWithStyle:(UIBarButtonItemStyle)style {
  if (!(self = [super init])) return nil;

  (void)style;  // Whether a title is bold is the button's own style.
  _itemAppearanceState = std::make_unique<sim::BarButtonItemAppearanceState>();
  for (auto &state : _itemAppearanceState->states) {
    state = objcxx::adopt([[UIBarButtonItemStateAppearance alloc] init]);
  }
  return self;
}

- (void)dealloc {
  if (_itemAppearanceState) [self sim_setOwner:nil];
  [super dealloc];
}

- (id)copyWithZone:(NSZone *)zone {
  UIBarButtonItemAppearance *copy = [[[self class] allocWithZone:zone] init];
  [copy sim_takeFrom:self];
  return copy;
}

- (void)sim_takeFrom:(UIBarButtonItemAppearance *)other {
  for (size_t at = 0; at < _itemAppearanceState->states.size(); ++at) {
    UIBarButtonItemStateAppearance *from = other->_itemAppearanceState->states[at].get();
    [_itemAppearanceState->states[at].get() setTitleTextAttributes:[from titleTextAttributes]];
    [_itemAppearanceState->states[at].get() setTitlePositionAdjustment:[from titlePositionAdjustment]];
  }
}

- (void)configureWithDefaultForStyle:(UIBarButtonItemStyle)style {
  [self sim_takeFrom:objcxx::adopt([[UIBarButtonItemAppearance alloc] initWithStyle:style]).get()];
}

- (UIBarButtonItemStateAppearance *)normal {
  return _itemAppearanceState->states[0].get();
}

- (UIBarButtonItemStateAppearance *)highlighted {
  return _itemAppearanceState->states[1].get();
}

- (UIBarButtonItemStateAppearance *)disabled {
  return _itemAppearanceState->states[2].get();
}

- (UIBarButtonItemStateAppearance *)focused {
  return _itemAppearanceState->states[3].get();
}

@end

@implementation UIBarButtonItemAppearance (Sim)

- (void)sim_setOwner:(UIBarAppearance *)owner {
  for (const auto &state : _itemAppearanceState->states) [state.get() sim_setOwner:owner];
}

@end
