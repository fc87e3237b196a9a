#import "theme/ZunoPresets.h"

#import "core/DevicePaths.h"
#import "core/ZunoprefsRootListController.h"
#import "theme/Alerts.h"
#import "theme/PresetStore.h"
#import "theme/ZunoPresets+Sharing.h"

namespace {

NSString *const kCellIdentifier = @"Cell";
constexpr CGFloat kRowHeight = 60;  // Points.

}  // namespace

@implementation ZunoPresets

@synthesize presetsArray = _presetsArray;

+ (NSString *)presetsFolder {
  return zuno::presetsFolder();
}

- (void)dealloc {
  [_presetsArray release];
  [super dealloc];
}

- (void)setRootController:(id)controller {
}

- (void)setParentController:(id)controller {
}

- (void)setSpecifier:(id)specifier {
}

- (void)viewDidLoad {
  [super viewDidLoad];
  UIBarButtonItem *add = [[[UIBarButtonItem alloc] initWithBarButtonSystemItem:UIBarButtonSystemItemAdd
                                                                        target:self
                                                                        action:@selector(onTapAdd)] autorelease];
  [[self navigationItem] setRightBarButtonItem:add];
  [self loadPresets];
  [[self navigationItem] setTitle:@"Presets"];
}

- (void)loadPresets {
  [self setPresetsArray:zuno::presetPaths()];
  [[self tableView] reloadData];
}

- (NSString *)validatePresetName:(NSString *)name {
  const auto checked = zuno::checkPresetName(name);
  if (checked.error) zuno::presentError(self, checked.error);
  return checked.name;
}

- (BOOL)presetWithNameExists:(NSString *)name {
  return zuno::presetExists(name);
}

- (void)savePresetWithName:(NSString *)name {
  if (zuno::savePreset(name)) [self loadPresets];
}

- (void)applyPreset:(NSString *)path {
  if (zuno::applyPreset(path)) pendingRootReload = YES;
}

- (void)newPresetAlert {
  __block UIAlertController *alert = zuno::alertTitled(@"New Preset", @"Enter a name for your preset");
  zuno::addField(alert, @"Preset Name...");
  zuno::addAction(alert, @"Save", UIAlertActionStyleDefault, ^{
    if (NSString *name = [self validatePresetName:zuno::fieldText(alert, 0)]) [self savePresetWithName:name];
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

- (NSString *)pathAt:(NSIndexPath *)indexPath {
  return [_presetsArray objectAtIndex:static_cast<NSUInteger>([indexPath row])];
}

#pragma mark - UITableViewDataSource

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  return static_cast<NSInteger>([_presetsArray count]);
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [tableView dequeueReusableCellWithIdentifier:kCellIdentifier];
  if (!cell) {
    cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault
                                   reuseIdentifier:kCellIdentifier] autorelease];
  }
  [[cell textLabel] setText:zuno::presetNameOf([self pathAt:indexPath])];
  return cell;
}

- (BOOL)tableView:(UITableView *)tableView canEditRowAtIndexPath:(NSIndexPath *)indexPath {
  return YES;
}

#pragma mark - UITableViewDelegate

- (CGFloat)tableView:(UITableView *)tableView heightForRowAtIndexPath:(NSIndexPath *)indexPath {
  return kRowHeight;
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)indexPath {
  [tableView deselectRowAtIndexPath:indexPath animated:NO];
  NSString *path = [self pathAt:indexPath];
  UIAlertController *alert = zuno::alertTitled(
      @"Apply Preset",
      [NSString stringWithFormat:@"Are you sure you would like to apply preset \"%@\"?\n\nAny current changes will be "
                                 @"lost.",
                                 zuno::presetNameOf(path)]);
  zuno::addAction(alert, @"Confirm", UIAlertActionStyleDestructive, ^{
    [self applyPreset:path];
    [self loadPresets];
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

- (NSArray *)tableView:(UITableView *)tableView editActionsForRowAtIndexPath:(NSIndexPath *)indexPath {
  NSString *path = [self pathAt:indexPath];
  UITableViewRowAction *remove =
      [UITableViewRowAction rowActionWithStyle:UITableViewRowActionStyleNormal
                                         title:@"Delete"
                                       handler:^(UITableViewRowAction *, NSIndexPath *) {
                                         [tableView setEditing:NO animated:YES];  // The row stays open otherwise.
                                         [self deletePresetAlert:path];
                                       }];
  [remove setBackgroundColor:[UIColor redColor]];
  UITableViewRowAction *share = [UITableViewRowAction rowActionWithStyle:UITableViewRowActionStyleNormal
                                                                   title:@"Share"
                                                                 handler:^(UITableViewRowAction *, NSIndexPath *) {
                                                                   [tableView setEditing:NO animated:YES];
                                                                   [self sharePresetAlert:path];
                                                                 }];
  [share setBackgroundColor:[UIColor colorWithRed:0.0 green:0.48 blue:1.0 alpha:1.0]];
  return @[ remove, share ];
}

- (void)deletePresetAlert:(NSString *)path {
  UIAlertController *alert = zuno::alertTitled(
      @"Delete Preset",
      [NSString stringWithFormat:@"Are you sure you would like to delete preset \"%@\"?", zuno::presetNameOf(path)]);
  zuno::addAction(alert, @"Confirm", UIAlertActionStyleDestructive, ^{
    zuno::deletePreset(path);
    [self loadPresets];
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

@end
