#import "theme/ZunoColourPicker.h"

#import <Preferences/PSListController.h>

#import "core/PreferenceRow.h"
#import "theme/ThemeColour.h"

@implementation ZunoColourPicker

+ (instancetype)pickerForRow:(PSSpecifier *)row {
  ZunoColourPicker *picker = [[[self alloc] init] autorelease];
  [picker showRow:row];
  return picker;
}

- (void)dealloc {
  [self setDelegate:nil];
  [_row release];
  [_owner release];
  [_chosen release];
  [_stored release];
  [super dealloc];
}

- (void)showRow:(PSSpecifier *)row {
  _row = [row retain];
  _owner = [[row target] retain];
  [self setTitle:[row name]];
  [self setSupportsAlpha:YES];
  const auto shown = zuno::storedColour([row performGetter]);
  const auto suggested = zuno::storedColour(zuno::rowText(row, PSPlaceholderKey));
  [self setSelectedColor:zuno::screenColour(shown ? *shown : suggested.value_or(zuno::Colour{1, 1, 1, 1}))];
  [self setDelegate:self];
}

- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  [self store];
}

- (void)colorPickerViewController:(UIColorPickerViewController *)picker
                   didSelectColor:(UIColor *)colour
                     continuously:(BOOL)continuously {
  const auto chosen = zuno::pickedColour(colour);
  if (!chosen) return;

  [_chosen release];
  _chosen = [zuno::storedText(*chosen) copy];
  if (!continuously) [self store];
}

/// Stores what was chosen last, once.
- (void)store {
  if (!_chosen || [_chosen isEqualToString:_stored]) return;

  [_stored release];
  _stored = [_chosen copy];
  [_row performSetterWithValue:_stored];
  if ([_owner isKindOfClass:[PSListController class]]) [_owner reloadSpecifierID:[_row identifier]];
}

@end
