#import <Preferences/PSTextViewTableCell.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <Preferences/RowLook.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIKit.h>

@implementation PSTextViewTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  _textView = [[UITextView alloc] initWithFrame:CGRectZero];
  [_textView setFont:[UIFont preferredFontForTextStyle:UIFontTextStyleBody]];
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
  return sim::textOf([self sim_valueOfSpecifier:specifier ofClass:[NSString class] orClass:[NSNumber class]]);
}

- (void)layoutSubviews {
  [super layoutSubviews];
  [_textView setFrame:CGRectInset([[self contentView] bounds], [self sim_margin], 0)];
}

#pragma mark - UITextViewDelegate

- (void)textViewDidEndEditing:(UITextView *)textView {
  [self sim_takeText:[textView text]];
}

@end
