#import <Preferences/PSSwitchTableCell.h>

#import <Preferences/PSConfirmationSpecifier.h>
#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <UIKit/UIKit.h>

@implementation PSSwitchTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  [self setAccessoryView:[self control]];
  [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  return self;
}

- (UIControl *)newControl {
  return [[UISwitch alloc] initWithFrame:CGRectZero];
}

- (id)controlValue {
  return [NSNumber numberWithBool:[(UISwitch *)[self control] isOn]];
}

- (void)setValue:(id)value {
  [super setValue:value];
  [(UISwitch *)[self control] setOn:[value boolValue]];
}

- (void)controlChanged:(UIControl *)control {
  id page = [self cellTarget];
  PSSpecifier *specifier = [self specifier];
  const bool confirms = [specifier isKindOfClass:[PSConfirmationSpecifier class]];
  if (confirms && [page respondsToSelector:@selector(showConfirmationViewForSpecifier:)]) {
    [page showConfirmationViewForSpecifier:(PSConfirmationSpecifier *)specifier];
  } else {
    [super controlChanged:control];
  }
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  return [self sim_valueOfSpecifier:specifier ofClass:[NSNumber class] orClass:[NSString class]];
}

@end
