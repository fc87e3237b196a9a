#import "cells/ZunoSwitchCell.h"

#import "core/PreferenceRow.h"

@implementation ZunoSwitchCell

- (void)setValue:(id)value {
  const bool isOn = [zuno::numberOrDefault(value, [self specifier]) doubleValue] != 0;
  [super setValue:[NSNumber numberWithBool:isOn]];
}

@end
