#import <UIKit/UINavigationBarAppearance.h>

#import <UIKit/UIBarAppearance+Sim.h>
#include <objcxx/Retained.h>

namespace sim {
struct NavigationBarAppearanceState {
  objcxx::Retained<NSDictionary> title = objcxx::share(@{});
  objcxx::Retained<NSDictionary> largeTitle = objcxx::share(@{});
  UIOffset titleOffset = UIOffsetZero;
  objcxx::Retained<UIBarButtonItemAppearance> button;
  objcxx::Retained<UIBarButtonItemAppearance> doneButton;
  objcxx::Retained<UIBarButtonItemAppearance> backButton;
};
}  // namespace sim

@implementation UINavigationBarAppearance

- (instancetype)initWithIdiom:(UIUserInterfaceIdiom)idiom {
  if (!(self = [super initWithIdiom:idiom])) return nil;

  _navigationBarAppearanceState = std::make_unique<sim::NavigationBarAppearanceState>();
  auto &state = *_navigationBarAppearanceState;
  [self sim_takeButton:nil style:UIBarButtonItemStylePlain into:state.button];
  [self sim_takeButton:nil style:UIBarButtonItemStyleDone into:state.doneButton];
  [self sim_takeButton:nil style:UIBarButtonItemStylePlain into:state.backButton];
  return self;
}

- (instancetype)initWithBarAppearance:(UIBarAppearance *)barAppearance {
  if (!(self = [super initWithBarAppearance:barAppearance])) return nil;
  if (![barAppearance isKindOfClass:[UINavigationBarAppearance class]]) return self;

  const BOOL isOffered = [barAppearance sim_isOffered];
  UINavigationBarAppearance *other = (UINavigationBarAppearance *)barAppearance;
  [self setTitleTextAttributes:[other titleTextAttributes]];
  [self setTitlePositionAdjustment:[other titlePositionAdjustment]];
  [self setLargeTitleTextAttributes:[other largeTitleTextAttributes]];
  [self setButtonAppearance:[other buttonAppearance]];
  [self setDoneButtonAppearance:[other doneButtonAppearance]];
  [self setBackButtonAppearance:[other backButtonAppearance]];
  [self setSim_isOffered:isOffered];
  return self;
}

- (void)dealloc {
  if (_navigationBarAppearanceState) {
    for (auto *each : {&_navigationBarAppearanceState->button, &_navigationBarAppearanceState->doneButton,
                       &_navigationBarAppearanceState->backButton}) {
      [each->get() sim_setOwner:nil];
    }
  }
  [super dealloc];
}

/// Puts a copy of `look` into its place; a new one of `style` for nil.
- (void)sim_takeButton:(UIBarButtonItemAppearance *)look
                 style:(UIBarButtonItemStyle)style
                  into:(objcxx::Retained<UIBarButtonItemAppearance> &)place {
  [place.get() sim_setOwner:nil];
  place = look ? objcxx::adopt((UIBarButtonItemAppearance *)[look copy])
               : objcxx::adopt([[UIBarButtonItemAppearance alloc] initWithStyle:style]);
  [place.get() sim_setOwner:self];
  [self sim_didChange];
}

- (NSDictionary *)titleTextAttributes {
  return _navigationBarAppearanceState->title.get();
}

- (void)setTitleTextAttributes:(NSDictionary *)attributes {
  _navigationBarAppearanceState->title = objcxx::adopt((NSDictionary *)[attributes ?: @{} copy]);
  [self sim_didChange];
}

- (UIOffset)titlePositionAdjustment {
  return _navigationBarAppearanceState->titleOffset;
}

- (void)setTitlePositionAdjustment:(UIOffset)offset {
  _navigationBarAppearanceState->titleOffset = offset;
  [self sim_didChange];
}

- (NSDictionary *)largeTitleTextAttributes {
  return _navigationBarAppearanceState->largeTitle.get();
}

- (void)setLargeTitleTextAttributes:(NSDictionary *)attributes {
  _navigationBarAppearanceState->largeTitle = objcxx::adopt((NSDictionary *)[attributes ?: @{} copy]);
  [self sim_didChange];
}

- (UIBarButtonItemAppearance *)buttonAppearance {
  return _navigationBarAppearanceState->button.get();
}

- (void)setButtonAppearance:(UIBarButtonItemAppearance *)look {
  [self sim_takeButton:look style:UIBarButtonItemStylePlain into:_navigationBarAppearanceState->button];
}

- (UIBarButtonItemAppearance *)doneButtonAppearance {
  return _navigationBarAppearanceState->doneButton.get();
}

- (void)setDoneButtonAppearance:(UIBarButtonItemAppearance *)look {
  [self sim_takeButton:look style:UIBarButtonItemStyleDone into:_navigationBarAppearanceState->doneButton];
}

- (UIBarButtonItemAppearance *)backButtonAppearance {
  return _navigationBarAppearanceState->backButton.get();
}

- (void)setBackButtonAppearance:(UIBarButtonItemAppearance *)look {
  [self sim_takeButton:look style:UIBarButtonItemStylePlain into:_navigationBarAppearanceState->backButton];
}

@end
