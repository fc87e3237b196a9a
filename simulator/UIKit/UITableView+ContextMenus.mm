// The menus of rows.
#import "UITableViewState.h"

#import <UIKit/UIContextMenuInteraction+Sim.h>

/// It is the delegate of its interaction, and an SIMContextMenuSource, without telling the world.
@implementation UITableView (ContextMenus)

- (UIContextMenuInteraction *)contextMenuInteraction {
  return _tableViewState->contextMenu.get();
}

- (void)sim_updateContextMenu {
  const SEL menu = @selector(tableView:contextMenuConfigurationForRowAtIndexPath:point:);
  const bool has = [_tableViewState->delegate respondsToSelector:menu] != NO;
  auto &interaction = _tableViewState->contextMenu;
  if (has == static_cast<bool>(interaction)) return;
  if (!has) {
    [self removeInteraction:interaction.get()];
    interaction = nullptr;
    return;
  }
  interaction = objcxx::adopt([[UIContextMenuInteraction alloc] initWithDelegate:(id)self]);
  [self addInteraction:interaction.get()];
}

- (UIContextMenuConfiguration *)contextMenuInteraction:(UIContextMenuInteraction *)interaction
                        configurationForMenuAtLocation:(CGPoint)location {
  (void)interaction;
  NSIndexPath *path = [self indexPathForRowAtPoint:location];
  if (!path) return nil;
  return [_tableViewState->delegate tableView:self contextMenuConfigurationForRowAtIndexPath:path point:location];
}

- (UIView *)sim_viewOfMenuAt:(CGPoint)location {
  NSIndexPath *path = [self indexPathForRowAtPoint:location];
  return (path ? [self sim_cellForControlEventsAtIndexPath:path] : nil) ?: self;
}

- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
    willDisplayMenuForConfiguration:(UIContextMenuConfiguration *)configuration
                           animator:(id<UIContextMenuInteractionAnimating>)animator {
  (void)interaction;
  id<UITableViewDelegate> delegate = _tableViewState->delegate;
  if ([delegate respondsToSelector:@selector(tableView:willDisplayContextMenuWithConfiguration:animator:)]) {
    [delegate tableView:self willDisplayContextMenuWithConfiguration:configuration animator:animator];
  }
}

- (void)contextMenuInteraction:(UIContextMenuInteraction *)interaction
       willEndForConfiguration:(UIContextMenuConfiguration *)configuration
                      animator:(id<UIContextMenuInteractionAnimating>)animator {
  (void)interaction;
  id<UITableViewDelegate> delegate = _tableViewState->delegate;
  if ([delegate respondsToSelector:@selector(tableView:willEndContextMenuInteractionWithConfiguration:animator:)]) {
    [delegate tableView:self willEndContextMenuInteractionWithConfiguration:configuration animator:animator];
  }
}

@end
