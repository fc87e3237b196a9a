#import "LanternColoursListController.h"
#import <Preferences/PSSpecifier.h>

static NSString *const LanternColours = @"/var/jb/Library/Application Support/Lantern/colours.plist";
static NSString *const LanternColourFile = @"/var/mobile/Library/Preferences/org.example.lantern.colour.plist";

@implementation LanternColoursListController {
  NSArray<NSString *> *_names;
  NSString *_chosen;
}

- (void)viewDidLoad {
  [super viewDidLoad];
  self.title = [self localized:@"COLOURS"];
}

- (NSString *)localized:(NSString *)key {
  return [[NSBundle bundleForClass:[self class]] localizedStringForKey:key value:nil table:nil];
}

- (NSArray *)specifiers {
  if (!_specifiers) {
    _names = [NSArray arrayWithContentsOfFile:LanternColours];
    _chosen = [NSDictionary dictionaryWithContentsOfFile:LanternColourFile][@"colour"] ?: _names.firstObject;
    NSMutableArray *specifiers = [NSMutableArray arrayWithObject:[PSSpecifier emptyGroupSpecifier]];
    for (NSString *name in _names) {
      PSSpecifier *specifier = [PSSpecifier preferenceSpecifierNamed:[self localized:name]
                                                              target:self
                                                                 set:NULL
                                                                 get:NULL
                                                              detail:nil
                                                                cell:PSListItemCell
                                                                edit:nil];
      [specifier setProperty:name forKey:@"colour"];
      [specifiers addObject:specifier];
    }
    _specifiers = specifiers;
  }
  return _specifiers;
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [super tableView:tableView cellForRowAtIndexPath:indexPath];
  BOOL isChosen = [_names[indexPath.row] isEqualToString:_chosen];
  cell.accessoryType = isChosen ? UITableViewCellAccessoryCheckmark : UITableViewCellAccessoryNone;
  return cell;
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)indexPath {
  [tableView deselectRowAtIndexPath:indexPath animated:YES];
  _chosen = _names[indexPath.row];
  [@{ @"colour" : _chosen } writeToFile:LanternColourFile atomically:YES];
  [tableView reloadData];
}

@end
