// The action and the menu of a button.
#import <UIKit/MenuController.h>
#import <UIKit/UIButtonState.h>
#import <UIKit/UIContextMenuInteraction+Sim.h>
#import <UIKit/UIControl+Sim.h>
#import <UIKit/UIMenuElement+Sim.h>

namespace {

/// Those that have a picture of their own show nothing of an action.
bool showsAction(UIButtonType type) { return type == UIButtonTypeCustom || type == UIButtonTypeSystem; }

/// The first action that is on, else the first of all; nil without any.
UIAction *selectedIn(UIMenu *menu) {
  if (NSArray *selected = [menu selectedElements];[selected count] > 0) return [selected objectAtIndex:0];
  for (const sim::MenuGroup &group : sim::groupsOf(menu)) {
    for (const auto &element : group.elements) {
      if ([element.get() isKindOfClass:[UIAction class]]) return (UIAction *)element.get();
    }
  }
  return nil;
}

}  // namespace

/// An SIMContextMenuSource, without telling the world.
@implementation UIButton (Menu)

- (void)sim_showAction:(UIAction *)action {
  if (!action || !showsAction([self buttonType])) return;
  [self setTitle:[action title] forState:UIControlStateNormal];
  [self setImage:[action image] forState:UIControlStateNormal];
}

- (instancetype)initWithFrame:(CGRect)frame primaryAction:(UIAction *)action {
  if (!(self = [super initWithFrame:frame primaryAction:action])) return nil;
  [self sim_showAction:action];
  return self;
}

+ (instancetype)buttonWithType:(UIButtonType)type primaryAction:(UIAction *)action {
  UIButton *button = [self buttonWithType:type];
  if (action) [button addAction:action forControlEvents:UIControlEventPrimaryActionTriggered];
  [button sim_showAction:action];
  return button;
}

+ (instancetype)systemButtonWithPrimaryAction:(UIAction *)action {
  return [self buttonWithType:UIButtonTypeSystem primaryAction:action];
}

+ (instancetype)systemButtonWithImage:(UIImage *)image target:(id)target action:(SEL)action {
  UIButton *button = [self buttonWithType:UIButtonTypeSystem];
  [button setImage:image forState:UIControlStateNormal];
  if (action) [button addTarget:target action:action forControlEvents:UIControlEventPrimaryActionTriggered];
  return button;
}

- (UIMenu *)menu {
  return _buttonState->menu.get();
}

- (void)setMenu:(UIMenu *)menu {
  _buttonState->menu = objcxx::share([menu sim_frozen]);
  [self sim_showSelection];
  [[self contextMenuInteraction] sim_replaceMenu:_buttonState->menu.get()];
  [self setContextMenuInteractionEnabled:menu != nil];
}

- (BOOL)changesSelectionAsPrimaryAction {
  return _buttonState->changesSelection;
}

- (void)setChangesSelectionAsPrimaryAction:(BOOL)changes {
  _buttonState->changesSelection = changes;
  [self sim_showSelection];
}

- (void)setShowsMenuAsPrimaryAction:(BOOL)shows {
  [super setShowsMenuAsPrimaryAction:shows];
  [self sim_showSelection];
}

- (BOOL)isHeld {
  return [[self contextMenuInteraction] sim_isOpen];
}

/// Whether the button shows what was chosen in its menu.
- (BOOL)sim_menuKeepsSelection {
  return _buttonState->changesSelection && _buttonState->menu && [self showsMenuAsPrimaryAction];
}

- (void)sim_showSelection {
  if (![self sim_menuKeepsSelection]) return;
  UIAction *selected = selectedIn(_buttonState->menu.get());
  if (!selected) return;
  sim::choose(_buttonState->menu.get(), selected);
  [self sim_showAction:selected];
}

- (void)sim_didChoose:(UIAction *)action {
  if ([self sim_menuKeepsSelection]) [self sim_showAction:action];
}

- (void)sim_willTriggerPrimaryAction {
  if (_buttonState->changesSelection && ![self sim_showsMenu]) [self setSelected:![self isSelected]];
}

- (UIContextMenuConfiguration *)contextMenuInteraction:(UIContextMenuInteraction *)interaction
                        configurationForMenuAtLocation:(CGPoint)location {
  (void)interaction, (void)location;
  const auto menu = _buttonState->menu;
  if (!menu) return nil;
  return [UIContextMenuConfiguration configurationWithIdentifier:nil
                                                 previewProvider:nil
                                                  actionProvider:^UIMenu *(NSArray *) {
                                                    return menu.get();
                                                  }];
}

@end
