#import <Preferences/RowLook.hpp>

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

bool hasPurpose(PSSpecifier *specifier) {
  switch ([specifier cellType]) {
    case PSSliderCell:
    case PSSwitchCell:
    case PSEditTextCell:
    case PSSegmentCell:
    case PSSecureEditTextCell:
    case PSEditTextViewCell:
    case PSLinkCell:
    case PSLinkListCell:
    case PSButtonCell:
      return specifier->setter || specifier->action || [specifier buttonAction] || [specifier controllerLoadAction] ||
             [specifier detailControllerClass] || [specifier propertyForKey:PSIconImageKey];
    default: return true;
  }
}

UIColor *titleColor(PSSpecifier *specifier, bool isEnabled) {
  if (!isEnabled) return [UIColor tertiaryLabelColor];
  if ([specifier cellType] != PSButtonCell) return [UIColor labelColor];
  const bool isDestructive = [specifier sim_flagForKey:PSConfirmationDestructiveKey fallback:NO];
  return isDestructive ? [UIColor systemRedColor] : [UIColor systemBlueColor];
}

bool showsDisclosure(PSSpecifier *specifier) {
  switch ([specifier cellType]) {
    case PSLinkCell:
    case PSLinkListCell: return ![specifier sim_flagForKey:@"hidesDisclosureIndicator" fallback:NO];
    case PSGiantIconCell:
    case PSGiantCell: return [specifier detailControllerClass] != Nil;
    default: return false;
  }
}

}  // namespace sim
