#import "cells/ZunoSliderCell.h"

#import <Preferences/PSSpecifier.h>

#import "core/NumberText.h"
#import "core/PreferenceRow.h"

#include <algorithm>
#include <cmath>

namespace {

// Points. The digits of the system's font differ in width.
constexpr CGFloat kSlack = 2;

// A slider that is not continuous tells of its value only at the end; these come while it is dragged.
constexpr UIControlEvents kMoves =
    UIControlEventValueChanged | UIControlEventTouchDragInside | UIControlEventTouchDragOutside;

}  // namespace

@implementation ZunoSliderCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)reuseIdentifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:reuseIdentifier specifier:specifier])) return nil;

  _number = [[UILabel alloc] initWithFrame:CGRectZero];
  [_number setFont:[UIFont preferredFontForTextStyle:UIFontTextStyleBody]];
  [_number setTextColor:[UIColor secondaryLabelColor]];
  [_number setTextAlignment:NSTextAlignmentRight];
  [_number setIsAccessibilityElement:NO];  // The slider says it.
  [[self control] addTarget:self action:@selector(showNumber) forControlEvents:kMoves];
  return self;
}

- (void)dealloc {
  [[self control] removeTarget:self action:@selector(showNumber) forControlEvents:kMoves];
  [_number release];
  [super dealloc];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  [self makeRoom];
  [self showNumber];
}

- (void)setValue:(id)value {
  [super setValue:zuno::numberOrDefault(value, [self specifier])];
}

- (void)setCellEnabled:(BOOL)enabled {
  [super setCellEnabled:enabled];
  [_number setTextColor:enabled ? [UIColor secondaryLabelColor] : [UIColor tertiaryLabelColor]];
}

/// Beside the content of the cell, which the slider fills, there is room for the longest text of the range, so that the
/// slider keeps its length while it is dragged.
- (void)makeRoom {
  UISlider *slider = (UISlider *)[self control];
  CGSize room = CGSizeZero;
  for (const float end : {[slider minimumValue], [slider maximumValue]}) {
    [_number setText:[self textOf:end unit:@"unit"]];
    const CGSize size = [_number sizeThatFits:CGSizeMake(CGFLOAT_MAX, CGFLOAT_MAX)];
    room = CGSizeMake(std::max(room.width, size.width), std::max(room.height, size.height));
  }
  [_number setFrame:CGRectMake(0, 0, std::ceil(room.width) + kSlack, std::ceil(room.height))];
  [self setAccessoryView:_number];
  [self setNeedsLayout];
}

- (void)showNumber {
  UISlider *slider = (UISlider *)[self control];
  NSString *spoken = zuno::rowText([self specifier], @"spokenUnit") ? @"spokenUnit" : @"unit";
  [_number setText:[self textOf:[slider value] unit:@"unit"]];
  [slider setAccessibilityValue:[self textOf:[slider value] unit:spoken]];
}

/// The number with the unit that the specifier has under `name`.
- (NSString *)textOf:(float)value unit:(NSString *)name {
  id decimals = [[self specifier] propertyForKey:@"decimals"];
  NSString *number = zuno::numberText(value, [decimals isKindOfClass:[NSNumber class]] ? [decimals intValue] : 0);
  NSString *unit = zuno::rowText([self specifier], name);
  return unit ? [NSString stringWithFormat:@"%@ %@", number, unit] : number;
}

@end
