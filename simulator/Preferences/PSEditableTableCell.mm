#import <Preferences/PSEditableTableCell.h>

#import <Preferences/CellTypes.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <Preferences/RowLook.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIKit.h>

#include <algorithm>

namespace {

constexpr CGFloat kGap = 8;

}  // namespace

@implementation PSEditableTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  _textField = [[UITextField alloc] initWithFrame:CGRectZero];
  [_textField setDelegate:self];
  [_textField setClearButtonMode:UITextFieldViewModeWhileEditing];
  [[self contentView] addSubview:_textField];
  [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  return self;
}

- (void)dealloc {
  [_textField setDelegate:nil];
  [_textField release];
  [super dealloc];
}

- (UITextField *)textField {
  return _textField;
}

- (UIResponder *)sim_editor {
  return _textField;
}

- (void)setValue:(id)value {
  [super setValue:value];
  [[self valueLabel] setText:nil];
  if (![_textField isEditing]) [_textField setText:[value description]];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [_textField setPlaceholder:[specifier sim_stringForKey:PSPlaceholderKey]];
  [_textField setKeyboardType:specifier->keyboardType];
  [_textField setAutocapitalizationType:specifier->autoCapsType];
  [_textField setAutocorrectionType:specifier->autoCorrectionType];
  [_textField setSecureTextEntry:sim::traitsOf([specifier cellType]).hidesText];
  [super refreshCellContentsWithSpecifier:specifier];
}

- (void)setCellEnabled:(BOOL)enabled {
  [super setCellEnabled:enabled];
  [_textField setEnabled:enabled];
}

- (BOOL)sim_showsValue {
  return YES;
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  return sim::textOf([self sim_valueOfSpecifier:specifier ofClass:[NSString class] orClass:[NSNumber class]]);
}

- (void)layoutSubviews {
  [super layoutSubviews];
  const CGRect bounds = [[self contentView] bounds];
  const CGFloat titleWidth = [[self title] length] > 0 ? [[self titleLabel] sizeThatFits:bounds.size].width + kGap : 0;
  const CGFloat left = [self sim_margin] + titleWidth;
  const CGFloat width = std::max<CGFloat>(0, bounds.size.width - left - [self sim_margin]);
  [_textField setFrame:CGRectMake(left, 0, width, bounds.size.height)];
}

#pragma mark - UITextFieldDelegate

- (BOOL)textFieldShouldReturn:(UITextField *)textField {
  if (![[self specifier] sim_flagForKey:@"textFieldShouldPopOnReturn" fallback:NO]) return NO;
  const auto keeper = objcxx::share(self);
  [textField resignFirstResponder];
  id page = [[self specifier] target];
  if ([page isKindOfClass:[UIViewController class]]) {
    [[page navigationController] popViewControllerAnimated:YES];
  }
  return YES;
}

- (void)textFieldDidEndEditing:(UITextField *)textField {
  [self sim_takeText:[textField text]];
}

@end
