#import "cells/ZunoSummaryCell.h"

#import <Preferences/PSSpecifier.h>

namespace {

constexpr NSUInteger kNamesShown = 2;
NSString *const kSeparator = @", ";
NSString *const kNone = @"None";

NSString *joined(NSArray *names) { return [names count] > 0 ? [names componentsJoinedByString:kSeparator] : kNone; }

/// The names as far as a row has room for them.
NSString *shortened(NSArray *names) {
  if ([names count] <= kNamesShown) return joined(names);
  const NSUInteger others = [names count] - kNamesShown;
  return [joined([names subarrayWithRange:NSMakeRange(0, kNamesShown)])
      stringByAppendingFormat:@"%@+%lu", kSeparator, static_cast<unsigned long>(others)];
}

}  // namespace

@implementation ZunoSummaryCell

/// Always with a label at the end of the row.
- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)reuseIdentifier
                    specifier:(PSSpecifier *)specifier {
  (void)style;
  return [super initWithStyle:UITableViewCellStyleValue1 reuseIdentifier:reuseIdentifier specifier:specifier];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  id names = [specifier propertyForKey:@"names"];
  const bool isKnown = [names isKindOfClass:[NSArray class]];
  [[self detailTextLabel] setText:isKnown ? shortened(names) : nil];
  [self setAccessibilityLabel:[specifier name]];
  [self setAccessibilityValue:isKnown ? joined(names) : nil];
}

- (void)setCellEnabled:(BOOL)enabled {
  [super setCellEnabled:enabled];
  [[self detailTextLabel] setTextColor:enabled ? [UIColor secondaryLabelColor] : [UIColor tertiaryLabelColor]];
}

@end
