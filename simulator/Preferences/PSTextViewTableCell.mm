#import <Preferences/PSTextViewTableCell.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <UIKit/UIKit.h>
#import <UIKit/UITableViewCell+Sim.h>

@implementation PSTextViewTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  _textView = [[UITextView alloc] initWithFrame:CGRectZero];
  [_textView setDelegate:self];
  [[self contentView] addSubview:_textView];
  [self setShouldHideTitle:YES];
  [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  return self;
}

- (void)dealloc {
  [_textView setDelegate:nil];
  [_textView release];
  [super dealloc];
}

- (UITextView *)textView {
  return _textView;
}

- (UIResponder *)sim_editor {
  return _textView;
}

- (void)setValue:(id)value {
  [super setValue:value];
  [[self valueLabel] setText:nil];
  if (![_textView isFirstResponder]) [_textView setText:[value description]];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [_textView setKeyboardType:specifier->keyboardType];
  [_textView setAutocapitalizationType:specifier->autoCapsType];
  [_textView setAutocorrectionType:specifier->autoCorrectionType];
  [super refreshCellContentsWithSpecifier:specifier];
}

- (void)setCellEnabled:(BOOL)enabled {
  [super setCellEnabled:enabled];
  [_textView setEditable:enabled];
}

- (BOOL)sim_showsValue {
  return YES;
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  id value = [specifier sim_valueOfClass:[NSString class] orClass:[NSNumber class]];
  [self sim_setRawValue:value];
  return [value isKindOfClass:[NSNumber class]] ? [value stringValue] : value;
}

- (void)layoutSubviews {
  [super layoutSubviews];
  [_textView setFrame:CGRectInset([[self contentView] bounds], [self sim_margin], 0)];
}

#pragma mark - UITextViewDelegate

- (void)textViewDidEndEditing:(UITextView *)textView {
  NSString *shown = [self value] ? [[self value] description] : @"";
  if ([[textView text] isEqualToString:shown]) return;
  const auto entered = objcxx::share([textView text]);
  [super setValue:entered.get()];
  [[self valueLabel] setText:nil];
  [self sim_sendValue:entered.get()];
}

@end
