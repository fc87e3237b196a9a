#import "theme/ZunoCustomiseRootListController.h"

#import <Preferences/PSSpecifier.h>

#import "core/PreferenceRow.h"
#import "core/Respring.h"
#import "theme/Alerts.h"
#import "theme/BackgroundImage.h"
#import "theme/ThemeChange.h"
#import "theme/ThemeRows.h"

namespace {

/// Owned while the page is on screen.
ZunoCustomiseRootListController *currentThemePage = nil;

void setCurrentThemePage(ZunoCustomiseRootListController *page) {
  ZunoCustomiseRootListController *previous = currentThemePage;
  currentThemePage = [page retain];
  [previous release];
}

zuno::PreferenceFile themeFile() { return zuno::PreferenceFile::ofDomain(zuno::kThemeDomain); }

}  // namespace

@implementation ZunoCustomiseRootListController

+ (ZunoCustomiseRootListController *)currentPage {
  return currentThemePage;
}

- (void)viewWillDisappear:(BOOL)animated {
  setCurrentThemePage(nil);
  [super viewWillDisappear:animated];
}

- (void)viewWillAppear:(BOOL)animated {
  setCurrentThemePage(self);
  [super viewWillAppear:animated];
  [self reloadSpecifiers];
}

- (void)clearSettings {
  UIAlertController *alert = zuno::alertTitled(@"Clear", @"Are you sure you would like to clear all settings?");
  zuno::addAction(alert, @"Yes", UIAlertActionStyleDestructive, ^{
    const auto file = themeFile();
    if (file.exists()) [[NSFileManager defaultManager] removeItemAtPath:file.path() error:nullptr];
    zuno::tellThemeChanged();
    [self reloadSpecifiers];
  });
  zuno::addAction(alert, @"No", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

- (NSArray *)specifiers {
  if (_specifiers) return _specifiers;

  NSMutableArray *rows = [[[self loadSpecifiersFromPlistName:@"Customise" target:self] mutableCopy] autorelease];
  zuno::removeRowsWithoutUse(rows, zuno::hasBackgroundImage());
  zuno::disableDependentRows(rows, themeFile());
  _specifiers = [rows copy];
  return _specifiers;
}

- (void)viewDidLoad {
  [super viewDidLoad];
  // Style 1, the bordered style, which the platform no longer tells from the plain one.
  UIBarButtonItem *button = [[[UIBarButtonItem alloc] initWithTitle:@"Respring"
                                                              style:static_cast<UIBarButtonItemStyle>(1)
                                                             target:self
                                                             action:@selector(respring)] autorelease];
  [[self navigationItem] setRightBarButtonItem:button];
}

- (id)readPreferenceValue:(PSSpecifier *)specifier {
  id value = zuno::rowValue(specifier, themeFile());
  if (zuno::isPartOfUserAgent(specifier)) [self reloadSpecifierID:zuno::kUserAgentRow];
  return value;
}

- (void)setPreferenceValue:(id)value specifier:(PSSpecifier *)specifier {
  zuno::setRowValue(value, specifier, themeFile());
  zuno::tellThemeChanged();
  if (zuno::isPartOfUserAgent(specifier)) [self reloadSpecifierID:zuno::kUserAgentRow];
  NSString *key = zuno::rowText(specifier, @"key");
  if (![key isEqualToString:@"useCustom"] && ![key isEqualToString:@"enabled"]) return;
  shouldReload = YES;
  [self reloadSpecifiers];
}

- (void)respring {
  zuno::respring();
}

- (void)selectImage {
  if (UIImagePickerController *picker = zuno::photoPicker(self)) {
    [self presentViewController:picker animated:YES completion:nil];
  }
}

- (void)imagePickerController:(UIImagePickerController *)picker didFinishPickingMediaWithInfo:(NSDictionary *)info {
  if (NSString *text = [self encodeToBase64String:zuno::pickedImage(info)]) {
    zuno::storeBackgroundImage(text);
    [self reloadSpecifiers];
  }
  [picker dismissViewControllerAnimated:NO completion:nil];
}

- (void)removeImage {
  UIAlertController *alert =
      zuno::alertTitled(@"Remove Photo", @"Are you sure you would like to remove the background image?");
  zuno::addAction(alert, @"Remove Photo", UIAlertActionStyleDestructive, ^{
    zuno::removeBackgroundImage();
    [self reloadSpecifiers];
  });
  zuno::addAction(alert, @"Cancel", UIAlertActionStyleCancel, nil);
  [self presentViewController:alert animated:YES completion:nil];
}

- (NSString *)encodeToBase64String:(UIImage *)image {
  return zuno::encodeImage(image);
}

@end
