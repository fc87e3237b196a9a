#import "LanternRootListController.h"
#import <Preferences/PSSpecifier.h>
#import "LanternHeaderView.h"

static NSString *const LanternPreferences = @"/var/mobile/Library/Preferences/org.example.lantern.plist";

@interface LanternRootListController ()

@property(nonatomic, strong) LanternHeaderView *headerView;

@end

@implementation LanternRootListController

- (NSArray *)specifiers {
  if (!_specifiers) {
    _specifiers = [self loadSpecifiersFromPlistName:@"Root" target:self];
  }
  return _specifiers;
}

- (NSString *)localized:(NSString *)key {
  return [[NSBundle bundleForClass:[self class]] localizedStringForKey:key value:nil table:nil];
}

- (void)viewDidLoad {
  [super viewDidLoad];
  self.headerView = [[LanternHeaderView alloc] initWithTitle:@"Lantern" subtitle:[self localized:@"SUBTITLE"]];
  self.table.tableHeaderView = self.headerView;
}

- (id)readPreferenceValue:(PSSpecifier *)specifier {
  NSDictionary *settings = [NSDictionary dictionaryWithContentsOfFile:LanternPreferences];
  return settings[specifier.properties[@"key"]] ?: specifier.properties[@"default"];
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier {
  NSMutableDictionary *settings = [NSMutableDictionary dictionaryWithContentsOfFile:LanternPreferences] ?: [NSMutableDictionary new];
  settings[specifier.properties[@"key"]] = value;
  [settings writeToFile:LanternPreferences atomically:YES];
  CFStringRef name = (__bridge CFStringRef)specifier.properties[@"PostNotification"];
  if (name) {
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), name, NULL, NULL, YES);
  }
}

- (void)resetSettings {
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"Lantern"
                                                                 message:[self localized:@"RESET_QUESTION"]
                                                          preferredStyle:UIAlertControllerStyleAlert];
  __weak typeof(self) weakSelf = self;
  [alert addAction:[UIAlertAction actionWithTitle:[self localized:@"RESET"]
                                            style:UIAlertActionStyleDestructive
                                          handler:^(UIAlertAction *action) {
                                            [[NSFileManager defaultManager] removeItemAtPath:LanternPreferences error:nil];
                                            [weakSelf reloadSpecifiers];
                                          }]];
  [alert addAction:[UIAlertAction actionWithTitle:[self localized:@"CANCEL"] style:UIAlertActionStyleCancel handler:nil]];
  [self presentViewController:alert animated:YES completion:nil];
}

@end
