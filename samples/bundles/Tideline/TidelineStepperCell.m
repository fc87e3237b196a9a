#import "TidelineStepperCell.h"
#import <Preferences/PSSpecifier.h>

@implementation TidelineStepperCell {
  UIStepper *_stepper;
  UILabel *_number;
  UILabel *_name;
}

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)reuseIdentifier
                    specifier:(PSSpecifier *)specifier {
  if ((self = [super initWithStyle:style reuseIdentifier:reuseIdentifier specifier:specifier])) {
    _name = [UILabel new];
    _number = [UILabel new];
    _number.textColor = UIColor.secondaryLabelColor;
    _number.font = [UIFont monospacedDigitSystemFontOfSize:17 weight:UIFontWeightRegular];
    _stepper = [UIStepper new];
    _stepper.accessibilityLabel = specifier.name;
    _stepper.minimumValue = [specifier.properties[@"min"] doubleValue];
    _stepper.maximumValue = [specifier.properties[@"max"] doubleValue];
    [_stepper addTarget:self action:@selector(stepped) forControlEvents:UIControlEventValueChanged];
    NSDictionary *views = NSDictionaryOfVariableBindings(_name, _number, _stepper);
    for (UIView *view in views.allValues) {
      view.translatesAutoresizingMaskIntoConstraints = NO;
      [self.contentView addSubview:view];
    }
    [NSLayoutConstraint
        activateConstraints:[NSLayoutConstraint
                                constraintsWithVisualFormat:@"H:|-16-[_name]-(>=8)-[_number]-12-[_stepper]-16-|"
                                                    options:NSLayoutFormatAlignAllCenterY
                                                    metrics:nil
                                                      views:views]];
    [NSLayoutConstraint activateConstraints:[NSLayoutConstraint constraintsWithVisualFormat:@"V:|-6-[_stepper]-6-|"
                                                                                    options:0
                                                                                    metrics:nil
                                                                                      views:views]];
  }
  return self;
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  self.textLabel.text = nil;
  _name.text = specifier.name;
  _stepper.value = [[specifier performGetter] doubleValue];
  [self showNumber];
}

- (void)showNumber {
  _number.text = [NSString stringWithFormat:@"%d", (int)_stepper.value];
}

- (void)stepped {
  [self.specifier performSetterWithValue:@((int)_stepper.value)];
  [self showNumber];
}

@end
