#import <Preferences/PSSliderTableCell.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <Preferences/PreferencesLog.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIKit.h>

#include <cmath>
#include <optional>

namespace {

constexpr CGFloat kValueWidth = 56;

/// The finite number that `value` is, or that its text says.
std::optional<float> numberOf(id value) {
  double number = 0;
  if ([value isKindOfClass:[NSNumber class]]) {
    number = [value doubleValue];
  } else if ([value isKindOfClass:[NSString class]]) {
    NSScanner *scanner = [NSScanner scannerWithString:value];
    if (![scanner scanDouble:&number] || ![scanner isAtEnd]) return std::nullopt;
  } else {
    return std::nullopt;
  }
  return std::isfinite(number) ? std::optional(static_cast<float>(number)) : std::nullopt;
}

/// A finite number of the plist, else the fallback.
float numberFor(PSSpecifier *specifier, NSString *key, float fallback) {
  id number = [specifier propertyForKey:key];
  if (!number) return fallback;
  if (const auto found = numberOf(number)) return *found;
  if ([specifier sim_isFirst:SIMSpecifierFaultRange]) {
    sim::logPreferences(@"%@: \"%@\" is no number.", [specifier sim_label], key);
  }
  return fallback;
}

}  // namespace

@implementation PSSliderTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  [self setShouldHideTitle:YES];
  [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  [[self contentView] addSubview:[self control]];
  return self;
}

- (UIControl *)newControl {
  return [[UISlider alloc] initWithFrame:CGRectZero];
}

- (id)controlValue {
  return [NSNumber numberWithFloat:[(UISlider *)[self control] value]];
}

- (BOOL)sim_showsNumber {
  return [[self specifier] sim_flagForKey:PSSliderShowValueKey fallback:NO];
}

- (void)setValue:(id)value {
  [super setValue:value];
  UISlider *slider = (UISlider *)[self control];
  [slider setValue:[self sim_nearestTo:numberOf(value).value_or([slider minimumValue])]];
  [self sim_showNumber];
}

- (void)sim_showNumber {
  const float value = [(UISlider *)[self control] value];
  [[self valueLabel] setText:[self sim_showsNumber] ? [NSString stringWithFormat:@"%.2f", value] : nil];
}

/// The value itself, or in a slider of segments the nearest end of one.
- (float)sim_nearestTo:(float)value {
  PSSpecifier *specifier = [self specifier];
  const float count = std::round(numberFor(specifier, PSSliderSegmentCountKey, 0));
  if (![specifier sim_flagForKey:PSSliderIsSegmentedKey fallback:NO] || count < 1) return value;
  UISlider *slider = (UISlider *)[self control];
  const float segment = ([slider maximumValue] - [slider minimumValue]) / count;
  if (segment <= 0) return value;
  return [slider minimumValue] + segment * std::round((value - [slider minimumValue]) / segment);
}

- (void)controlChanged:(UIControl *)control {
  UISlider *slider = (UISlider *)control;
  [slider setValue:[self sim_nearestTo:[slider value]]];
  [self sim_showNumber];
  [super controlChanged:control];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  UISlider *slider = (UISlider *)[self control];
  const float lowest = numberFor(specifier, PSControlMinimumKey, 0);
  const float highest = numberFor(specifier, PSControlMaximumKey, 1);
  [slider setMinimumValue:lowest];
  [slider setMaximumValue:highest];
  // Only the system's own domains hear of a drag before its end.
  const bool isSystem = [[specifier sim_stringForKey:PSDefaultsKey] hasPrefix:@"com.apple."];
  [slider setContinuous:isSystem && [specifier sim_flagForKey:PSSliderIsContinuous fallback:YES]];
  id left = [specifier propertyForKey:PSSliderLeftImageKey];
  id right = [specifier propertyForKey:PSSliderRightImageKey];
  [slider setMinimumValueImage:[left isKindOfClass:[UIImage class]] ? left : nil];
  [slider setMaximumValueImage:[right isKindOfClass:[UIImage class]] ? right : nil];
  [super refreshCellContentsWithSpecifier:specifier];
}

- (id)sim_valueOfSpecifier:(PSSpecifier *)specifier {
  return [self sim_valueOfSpecifier:specifier ofClass:[NSNumber class] orClass:[NSString class]];
}

- (void)layoutSubviews {
  [super layoutSubviews];
  CGRect frame = CGRectInset([[self contentView] bounds], [self sim_margin], 0);
  if ([self sim_showsNumber]) frame.size.width -= kValueWidth;
  [[self control] setFrame:frame];
}

@end
