#import <Preferences/RowLook.h>

#import <Preferences/CellTypes.h>
#import <Preferences/PSSpecifier+Sim.h>

namespace sim {

NSString *textOf(id value) {
  if ([value isKindOfClass:[NSString class]]) return value;
  return [value isKindOfClass:[NSNumber class]] ? [value stringValue] : nil;
}

NSTextAlignment alignmentFrom(id property) {
  if ([property isKindOfClass:[NSNumber class]]) {
    const NSInteger number = [property integerValue];
    return number >= NSTextAlignmentLeft && number <= NSTextAlignmentNatural ? static_cast<NSTextAlignment>(number)
                                                                             : NSTextAlignmentNatural;
  }
  if (![property isKindOfClass:[NSString class]]) return NSTextAlignmentNatural;
  if ([property isEqualToString:@"center"] || [property isEqualToString:@"1"]) return NSTextAlignmentCenter;
  if ([property isEqualToString:@"right"] || [property isEqualToString:@"2"]) return NSTextAlignmentRight;
  return NSTextAlignmentLeft;
}

bool acts(PSSpecifier *specifier) {
  return specifier->action || [specifier buttonAction] || [specifier controllerLoadAction];
}

bool takesTaps(PSSpecifier *specifier) {
  if (![specifier sim_isEnabled]) return false;
  switch (traitsOf([specifier cellType]).tap) {
    case Tap::kRefused: return false;
    case Tap::kNothing: return acts(specifier);
    case Tap::kOpensOwnPage: return acts(specifier) || [specifier detailControllerClass];
    default: return true;
  }
}

bool hasPurpose(PSSpecifier *specifier) {
  return !traitsOf([specifier cellType]).needsPurpose || specifier->setter || acts(specifier) ||
         [specifier detailControllerClass] || [specifier propertyForKey:PSIconImageKey];
}

UIColor *titleColor(PSSpecifier *specifier, bool isEnabled) {
  if (!isEnabled) return [UIColor tertiaryLabelColor];
  if (traitsOf([specifier cellType]).tap != Tap::kPresses) return [UIColor labelColor];
  const bool isDestructive = [specifier sim_flagForKey:PSConfirmationDestructiveKey fallback:NO];
  return isDestructive ? [UIColor systemRedColor] : [UIColor systemBlueColor];
}

bool showsDisclosure(PSSpecifier *specifier) {
  switch (traitsOf([specifier cellType]).tap) {
    case Tap::kOpensPage: return ![specifier sim_flagForKey:@"hidesDisclosureIndicator" fallback:NO];
    case Tap::kOpensOwnPage: return [specifier detailControllerClass] != Nil;
    default: return false;
  }
}

}  // namespace sim
