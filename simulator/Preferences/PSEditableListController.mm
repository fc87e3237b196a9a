#import <Preferences/PSEditableListController.h>

#import <Preferences/PSSpecifier+Sim.h>

namespace {

NSString *deletionActionOf(PSSpecifier *specifier) { return [specifier sim_stringForKey:PSDeletionActionKey]; }

}  // namespace

@implementation PSEditableListController

- (void)viewDidLoad {
  [super viewDidLoad];
  [self setEditingButtonHidden:NO animated:NO];
}

- (BOOL)editable {
  return _editable;
}

- (void)setEditable:(BOOL)editable {
  if (_editable == editable) return;
  _editable = editable;
  [[self table] setEditing:editable animated:YES];
  if ([[self navigationItem] rightBarButtonItem]) [self setEditingButtonHidden:NO animated:YES];
}

- (void)setEditingButtonHidden:(BOOL)hidden animated:(BOOL)animated {
  UIBarButtonItem *button = nil;
  if (!hidden) {
    button = [[[UIBarButtonItem alloc]
        initWithBarButtonSystemItem:_editable ? UIBarButtonSystemItemDone : UIBarButtonSystemItemEdit
                             target:self
                             action:@selector(editDoneTapped)] autorelease];
    [button setEnabled:!_editingDisabled];
  }
  [[self navigationItem] setRightBarButtonItem:button animated:animated];
}

- (void)setEditButtonEnabled:(BOOL)enabled {
  _editingDisabled = !enabled;
  [[[self navigationItem] rightBarButtonItem] setEnabled:enabled];
}

- (void)editDoneTapped {
  [self setEditable:!_editable];
}

- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  [self setEditable:NO];
}

- (BOOL)performDeletionActionForSpecifier:(PSSpecifier *)specifier {
  NSString *action = deletionActionOf(specifier);
  const SEL selector = action ? NSSelectorFromString(action) : nullptr;
  if (!selector || ![[specifier target] respondsToSelector:selector]) return NO;
  [[specifier target] performSelector:selector withObject:specifier];
  return YES;
}

- (BOOL)tableView:(UITableView *)tableView canEditRowAtIndexPath:(NSIndexPath *)indexPath {
  (void)tableView;
  return deletionActionOf([self specifierAtIndexPath:indexPath]) != nil;
}

- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView
           editingStyleForRowAtIndexPath:(NSIndexPath *)indexPath {
  return [self tableView:tableView canEditRowAtIndexPath:indexPath] ? UITableViewCellEditingStyleDelete
                                                                    : UITableViewCellEditingStyleNone;
}

- (void)tableView:(UITableView *)tableView
    commitEditingStyle:(UITableViewCellEditingStyle)style
     forRowAtIndexPath:(NSIndexPath *)indexPath {
  (void)tableView;
  if (style != UITableViewCellEditingStyleDelete) return;
  PSSpecifier *specifier = [[[self specifierAtIndexPath:indexPath] retain] autorelease];
  // The action may have taken the row off itself.
  if ([self performDeletionActionForSpecifier:specifier] && [self containsSpecifier:specifier]) {
    [self removeSpecifier:specifier animated:YES];
  }
}

@end
