// The menu of a control.
#import <UIKit/UIContextMenuInteraction+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIControlMemory.h>

@implementation UIControl (Menu)

- (BOOL)isContextMenuInteractionEnabled {
  return _controlState->menuEnabled;
}

- (void)setContextMenuInteractionEnabled:(BOOL)enabled {
  sim::UIControlMemory &state = *_controlState;
  state.menuEnabled = enabled;
  if (enabled && !state.menuInteraction) {
    state.menuInteraction = objcxx::adopt([[UIContextMenuInteraction alloc] initWithDelegate:self]);
  }
  if (enabled) [self addInteraction:state.menuInteraction.get()];
  else [self removeInteraction:state.menuInteraction.get()];
}

- (UIContextMenuInteraction *)contextMenuInteraction {
  return _controlState->menuInteraction.get();
}

- (BOOL)showsMenuAsPrimaryAction {
  return _controlState->menuIsPrimary;
}

- (void)setShowsMenuAsPrimaryAction:(BOOL)shows {
  _controlState->menuIsPrimary = shows;
}

/// Whatever opens the menu, this comes before.
- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
    willDisplayMenuForConfiguration:(UIContextMenuConfiguration *)configuration
                           animator:(id<UIContextMenuInteractionAnimating>)animator {
  (void)interaction, (void)configuration, (void)animator;
  [self sendActionsForControlEvents:UIControlEventMenuActionTriggered];
}

- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
       willEndForConfiguration:(UIContextMenuConfiguration *)configuration
                      animator:(id<UIContextMenuInteractionAnimating>)animator {
  (void)interaction, (void)configuration, (void)animator;
}

@end

@implementation UIControl (SimMenu)

- (BOOL)sim_showsMenu {
  return _controlState->menuIsPrimary && _controlState->menuEnabled;
}

- (void)sim_openMenuAt:(CGPoint)location {
  (void)[_controlState->menuInteraction.get() sim_openAt:location];
}

@end
