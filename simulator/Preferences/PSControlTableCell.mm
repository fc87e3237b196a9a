#import <Preferences/PSControlTableCell.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <UIKit/UIKit.h>

@implementation PSControlTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  UIControl *control = [self newControl];
  [control addTarget:self action:@selector(controlChanged:) forControlEvents:UIControlEventValueChanged];
  [self setControl:control];
  [control release];
  return self;
}

- (void)dealloc {
  [_control removeTarget:self action:NULL forControlEvents:UIControlEventAllEvents];
  [_control release];
  [super dealloc];
}

- (UIControl *)control {
  return _control;
}

- (void)setControl:(UIControl *)control {
  [control retain];
  [_control release];
  _control = control;
}

- (UIControl *)newControl {
  return nil;
}

/// The control shows it.
- (void)setValue:(id)value {
  [super setValue:value];
  [[self valueLabel] setText:nil];
}

- (id)controlValue {
  return [self value];
}

- (void)controlChanged:(UIControl *)control {
  (void)control;
  [self sim_sendValue:[self controlValue]];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  [_control setAccessibilityLabel:[specifier name]];
  [specifier setProperty:_control forKey:PSControlKey];
}

- (void)setCellEnabled:(BOOL)enabled {
  [super setCellEnabled:enabled];
  [_control setEnabled:enabled];
}

- (BOOL)sim_showsValue {
  return YES;
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  id raw = [specifier sim_value];
  [self sim_cellState].rawValue = objcxx::share((NSObject *)raw);
  return raw;
}

@end
