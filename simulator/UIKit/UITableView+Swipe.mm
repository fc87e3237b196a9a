// The actions that a swipe over a row uncovers.
#import "UITableViewState.h"

#import <UIKit/UIColor.h>
#import <UIKit/UISwipeActionsConfiguration.h>
#import <UIKit/UITableViewRowAction+Sim.h>

@interface SIMSwipeAction ()
- (instancetype)initWithTitle:(NSString *)title
              backgroundColor:(UIColor *)color
                  destructive:(BOOL)destructive
                      leading:(BOOL)leading;
@end

@implementation SIMSwipeAction

@synthesize title = _title;
@synthesize backgroundColor = _backgroundColor;
@synthesize image = _image;
@synthesize destructive = _destructive;
@synthesize leading = _leading;

- (instancetype)initWithTitle:(NSString *)title
              backgroundColor:(UIColor *)color
                  destructive:(BOOL)destructive
                      leading:(BOOL)leading {
  if (!(self = [super init])) return nil;

  _title = [title copy];
  _backgroundColor = [color retain];
  _destructive = destructive;
  _leading = leading;
  return self;
}

- (void)dealloc {
  [_title release];
  [_backgroundColor release];
  [_image release];
  [super dealloc];
}

@end

namespace {

SIMSwipeAction *describe(UIContextualAction *action, BOOL leading) {
  auto described =
      objcxx::adopt([[SIMSwipeAction alloc] initWithTitle:[action title]
                                          backgroundColor:[action backgroundColor]
                                              destructive:[action style] == UIContextualActionStyleDestructive
                                                  leading:leading]);
  [described.get() setImage:[action image]];
  return described.autoreleased();
}

SIMSwipeAction *describe(UITableViewRowAction *action) {
  return objcxx::adopt([[SIMSwipeAction alloc] initWithTitle:[action title]
                                             backgroundColor:[action backgroundColor]
                                                 destructive:[action style] == UITableViewRowActionStyleDestructive
                                                     leading:NO])
      .autoreleased();
}

}  // namespace

@implementation UITableView (SimSwipe)

/// The actions behind the row, each a UIContextualAction, a UITableViewRowAction, or the string that titles the plain
/// delete button; trailing ones first. `leadingFrom` gets the index of the first leading one.
- (NSArray *)sim_actionsBehind:(NSIndexPath *)indexPath leadingFrom:(NSUInteger *)leadingFrom {
  auto &state = *_tableViewState;
  NSMutableArray *actions = [NSMutableArray array];
  *leadingFrom = 0;
  if (![self sim_canEditRowAtIndexPath:indexPath]) return actions;
  const bool isDeletable = [self sim_editingStyleAtIndexPath:indexPath] == UITableViewCellEditingStyleDelete;
  if (state.editing && !isDeletable) return actions;

  UISwipeActionsConfiguration *trailing = nil;
  if (state.has.trailingSwipe) {
    trailing = [state.delegate tableView:self trailingSwipeActionsConfigurationForRowAtIndexPath:indexPath];
  }
  if (trailing) {
    [actions addObjectsFromArray:[trailing actions] ?: @[]];
  } else if (isDeletable) {
    NSArray *rowActions = nil;
    if (state.has.editActions) {
      rowActions = [state.delegate tableView:self editActionsForRowAtIndexPath:indexPath];
    }
    if (rowActions) {
      [actions addObjectsFromArray:rowActions];
    } else if (state.source.commit) {
      NSString *title = nil;
      if (state.has.deleteTitle) {
        title = [state.delegate tableView:self titleForDeleteConfirmationButtonForRowAtIndexPath:indexPath];
      }
      [actions addObject:title ?: @"Delete"];
    }
  }
  *leadingFrom = [actions count];
  if (state.has.leadingSwipe && !state.editing) {
    UISwipeActionsConfiguration *leading = [state.delegate tableView:self
                   leadingSwipeActionsConfigurationForRowAtIndexPath:indexPath];
    [actions addObjectsFromArray:[leading actions] ?: @[]];
  }
  return actions;
}

- (NSArray *)sim_swipeActionsAtIndexPath:(NSIndexPath *)indexPath {
  NSUInteger leadingFrom = 0;
  NSMutableArray *described = [NSMutableArray array];
  for (id action in [self sim_actionsBehind:indexPath leadingFrom:&leadingFrom]) {
    if ([action isKindOfClass:[UIContextualAction class]]) {
      [described addObject:describe((UIContextualAction *)action, [described count] >= leadingFrom)];
    } else if ([action isKindOfClass:[UITableViewRowAction class]]) {
      [described addObject:describe((UITableViewRowAction *)action)];
    } else {
      [described addObject:objcxx::adopt([[SIMSwipeAction alloc] initWithTitle:action
                                                               backgroundColor:[UIColor systemRedColor]
                                                                   destructive:YES
                                                                       leading:NO])
                               .get()];
    }
  }
  return described;
}

- (NSIndexPath *)sim_swipedRow {
  return _tableViewState->swiped ? sim::pathOf(*_tableViewState->swiped) : nil;
}

- (BOOL)sim_swipeRowAtIndexPath:(NSIndexPath *)indexPath {
  return !_tableViewState->editing && [self sim_uncoverActionsAtIndexPath:indexPath];
}

- (BOOL)sim_tapEditControlAtIndexPath:(NSIndexPath *)indexPath {
  switch ([self sim_editControlAtIndexPath:indexPath]) {
    case UITableViewCellEditingStyleDelete: return [self sim_uncoverActionsAtIndexPath:indexPath];
    case UITableViewCellEditingStyleInsert: return [self sim_commitInsertAtIndexPath:indexPath];
    default: return NO;
  }
}

- (BOOL)sim_uncoverActionsAtIndexPath:(NSIndexPath *)indexPath {
  NSUInteger leadingFrom = 0;
  if ([[self sim_actionsBehind:indexPath leadingFrom:&leadingFrom] count] == 0) return NO;
  [self sim_openRow:sim::indexOf(indexPath)];
  return YES;
}

- (void)sim_openRow:(sim::RowIndex)index {
  auto &state = *_tableViewState;
  if (state.swiped == index) return;
  (void)[self sim_closeSwipedRow];
  state.swiped = index;
  ++state.swipes;
  if (state.has.willEdit && !state.editing)
    [state.delegate tableView:self willBeginEditingRowAtIndexPath:sim::pathOf(index)];
}

- (BOOL)sim_closeSwipedRow {
  auto &state = *_tableViewState;
  const auto open = std::exchange(state.swiped, std::nullopt);
  if (open && state.has.didEdit && !state.editing)
    [state.delegate tableView:self didEndEditingRowAtIndexPath:sim::pathOf(*open)];
  return open.has_value();
}

/// For the end of an action, which may come when another row is open.
- (void)sim_closeSwipe:(unsigned long)number {
  if (_tableViewState->swipes == number) (void)[self sim_closeSwipedRow];
}

- (BOOL)sim_performSwipeActionAtIndex:(NSUInteger)index ofRow:(NSIndexPath *)indexPath {
  NSUInteger leadingFrom = 0;
  NSArray *actions = [self sim_actionsBehind:indexPath leadingFrom:&leadingFrom];
  if (index >= [actions count]) return NO;

  auto &state = *_tableViewState;
  const auto keepAlive = objcxx::share(self);
  UITableViewCell *cell = [self sim_cellForControlEventsAtIndexPath:indexPath];
  if (!cell) return NO;
  [self sim_openRow:sim::indexOf(indexPath)];
  const unsigned long number = state.swipes;
  id action = [actions objectAtIndex:index];
  if ([action isKindOfClass:[UIContextualAction class]]) {
    UIContextualActionHandler handler = [action handler];
    if (handler) {
      handler(action, cell, ^(BOOL) {
        [self sim_closeSwipe:number];
      });
    }
  } else if ([action isKindOfClass:[UITableViewRowAction class]]) {
    [action sim_performAtIndexPath:indexPath];
  } else {
    [self sim_commitDeleteAtIndexPath:indexPath];
    [self sim_closeSwipe:number];
  }
  return YES;
}

@end
