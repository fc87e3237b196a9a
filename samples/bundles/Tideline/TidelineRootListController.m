#import "TidelineRootListController.h"
#import <Preferences/PSSpecifier.h>
#import <SafariServices/SafariServices.h>
#import <spawn.h>
#import "TidelineHeaderView.h"
#import "TidelineSettings.h"

@implementation TidelineRootListController {
  TidelineHeaderView *_header;
  NSString *_sought;
}

- (NSArray *)specifiers {
  if (!_specifiers) {
    NSArray *all = [self loadSpecifiersFromPlistName:@"Root" target:self];
    if (_sought.length > 0) {
      all = [all filteredArrayUsingPredicate:[NSPredicate predicateWithBlock:^BOOL(PSSpecifier *each, NSDictionary *_) {
                   return each.cellType != PSGroupCell && [each.name localizedCaseInsensitiveContainsString:self->_sought];
                 }]];
    }
    _specifiers = [all mutableCopy];
  }
  return _specifiers;
}

- (void)viewDidLoad {
  [super viewDidLoad];
  UISearchController *search = [[UISearchController alloc] initWithSearchResultsController:nil];
  search.searchResultsUpdater = self;
  search.obscuresBackgroundDuringPresentation = NO;
  search.searchBar.placeholder = @"Search settings";
  self.navigationItem.searchController = search;
  self.navigationItem.hidesSearchBarWhenScrolling = NO;

  self.navigationItem.rightBarButtonItem =
      [[UIBarButtonItem alloc] initWithImage:[UIImage systemImageNamed:@"ellipsis.circle"]
                                       style:UIBarButtonItemStylePlain
                                      target:self
                                      action:@selector(showMore)];
  self.navigationItem.rightBarButtonItem.accessibilityLabel = @"More";

  __weak typeof(self) weakSelf = self;
  _header = [[TidelineHeaderView alloc] initWithFrame:CGRectZero];
  _header.onTap = ^{
    [weakSelf chooseColour];
  };
  [self showSettings];
}

- (void)viewDidLayoutSubviews {
  [super viewDidLayoutSubviews];
  [self fitHeader];
}

/// A table gives its header the width of the page; how high it is, its constraints say.
- (void)fitHeader {
  CGFloat width = self.table.bounds.size.width;
  CGSize size = [_header systemLayoutSizeFittingSize:CGSizeMake(width, 0)
                       withHorizontalFittingPriority:UILayoutPriorityRequired
                             verticalFittingPriority:UILayoutPriorityFittingSizeLevel];
  if (self.table.tableHeaderView == _header && CGSizeEqualToSize(_header.frame.size, CGSizeMake(width, size.height))) return;
  _header.frame = CGRectMake(0, 0, width, size.height);
  self.table.tableHeaderView = _header;
}

- (void)showSettings {
  TidelineSettings *settings = TidelineSettings.shared;
  _header.colour = settings.colour;
  _header.summary = [NSString stringWithFormat:@"%ld lines of water. Tap to choose their colour.", (long)settings.lines];
  [self.view setNeedsLayout];
}

- (void)reload {
  [self showSettings];
  [self reloadSpecifiers];
}

- (void)updateSearchResultsForSearchController:(UISearchController *)searchController {
  NSString *sought = searchController.searchBar.text;
  if ([sought isEqualToString:_sought ?: @""]) return;
  _sought = [sought copy];
  [self reloadSpecifiers];
}

- (id)readPreferenceValue:(PSSpecifier *)specifier {
  NSString *key = specifier.properties[@"key"];
  return [TidelineSettings.shared objectForKey:key] ?: specifier.properties[@"default"];
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier {
  [TidelineSettings.shared setObject:value forKey:specifier.properties[@"key"]];
  [self showSettings];
}

/// What every app of the device is to see is set for all of them.
- (void)setShared:(id)value specifier:(PSSpecifier *)specifier {
  CFPreferencesSetAppValue((__bridge CFStringRef)specifier.properties[@"key"], (__bridge CFPropertyListRef)value,
                           CFSTR("org.example.tideline.shared"));
  CFPreferencesAppSynchronize(CFSTR("org.example.tideline.shared"));
}

- (id)readShared:(PSSpecifier *)specifier {
  CFPreferencesAppSynchronize(CFSTR("org.example.tideline.shared"));
  return CFBridgingRelease(CFPreferencesCopyAppValue((__bridge CFStringRef)specifier.properties[@"key"],
                                                     CFSTR("org.example.tideline.shared"))) ?: @NO;
}

- (void)showMore {
  UIAlertController *sheet = [UIAlertController alertControllerWithTitle:nil
                                                                 message:nil
                                                          preferredStyle:UIAlertControllerStyleActionSheet];
  [sheet addAction:[UIAlertAction actionWithTitle:@"Reset"
                                            style:UIAlertActionStyleDestructive
                                          handler:^(UIAlertAction *action) {
                                            [TidelineSettings.shared removeAll];
                                            [self reload];
                                          }]];
  [sheet addAction:[UIAlertAction actionWithTitle:@"Respring"
                                            style:UIAlertActionStyleDefault
                                          handler:^(UIAlertAction *action) {
                                            [self respring];
                                          }]];
  [sheet addAction:[UIAlertAction actionWithTitle:@"Cancel" style:UIAlertActionStyleCancel handler:nil]];
  sheet.popoverPresentationController.barButtonItem = self.navigationItem.rightBarButtonItem;
  [self presentViewController:sheet animated:YES completion:nil];
}

- (void)chooseColour {
  UIColorPickerViewController *picker = [UIColorPickerViewController new];
  picker.title = @"Water";
  picker.selectedColor = TidelineSettings.shared.colour;
  picker.delegate = self;
  [self presentViewController:picker animated:YES completion:nil];
}

- (void)colorPickerViewControllerDidSelectColor:(UIColorPickerViewController *)viewController {
  TidelineSettings.shared.colour = viewController.selectedColor;
  [self showSettings];
}

- (void)openSource {
  NSURL *address = [NSURL URLWithString:@"https://example.org/tideline"];
  [self presentViewController:[[SFSafariViewController alloc] initWithURL:address] animated:YES completion:nil];
}

- (void)countWaves:(PSSpecifier *)specifier {
  dispatch_async(dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0), ^{
    NSInteger waves = 0;
    for (NSInteger each = 0; each < 1000; ++each) waves += each % 7 == 0;
    dispatch_async(dispatch_get_main_queue(), ^{
      specifier.name = [NSString stringWithFormat:@"Counted %ld Waves", (long)waves];
      [self reloadSpecifier:specifier];
    });
  });
}

- (void)respring {
  pid_t pid;
  const char *arguments[] = {"killall", "SpringBoard", NULL};
  posix_spawn(&pid, "/var/jb/usr/bin/killall", NULL, NULL, (char *const *)arguments, NULL);
}

@end
