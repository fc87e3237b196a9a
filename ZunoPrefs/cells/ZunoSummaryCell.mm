#import "cells/ZunoSummaryCell.h"

#import <Preferences/PSSpecifier.h>

namespace {

constexpr CGFloat kGaps = 20;  // Points before and behind the value, at least.
NSString *const kSeparator = @", ";
NSString *const kNone = @"None";

NSString *joined(NSArray *names) { return [names count] > 0 ? [names componentsJoinedByString:kSeparator] : kNone; }

/// The first `shown` of the names and how many more there are.
NSString *shortened(NSArray *names, NSUInteger shown) {
  if (shown >= [names count]) return joined(names);
  const auto others = static_cast<unsigned long>([names count] - shown);
  if (shown == 0) return [NSString stringWithFormat:@"%lu", others];
  return
      [joined([names subarrayWithRange:NSMakeRange(0, shown)]) stringByAppendingFormat:@"%@+%lu", kSeparator, others];
}

CGFloat widthOf(NSString *text, UILabel *label) {
  return [text sizeWithAttributes:@{NSFontAttributeName : [label font]}].width;
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

/// What is chosen; nil while it is not known.
- (NSArray *)names {
  id names = [[self specifier] propertyForKey:@"names"];
  return [names isKindOfClass:[NSArray class]] ? names : nil;
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  NSArray *names = [self names];
  NSString *all = names ? joined(names) : nil;
  [[self detailTextLabel] setText:all];
  [self setAccessibilityLabel:[specifier name]];
  [self setAccessibilityValue:all];
  [self setNeedsLayout];
}

- (void)layoutSubviews {
  [super layoutSubviews];
  NSString *fitting = [self textThatFits];
  // The same text again would ask for another layout.
  if (!fitting || [fitting isEqualToString:[[self detailTextLabel] text]]) return;

  [[self detailTextLabel] setText:fitting];
  [super layoutSubviews];
}

/// The value for the room that the name of the row leaves; nil while it is not known.
- (NSString *)textThatFits {
  NSArray *names = [self names];
  UILabel *title = [self textLabel], *value = [self detailTextLabel];
  const CGFloat room =
      CGRectGetWidth([[self contentView] bounds]) - CGRectGetMinX([title frame]) - widthOf([title text], title) - kGaps;
  NSUInteger shown = [names count];
  // A single name is cut by its label.
  while (shown > 0 && [names count] > 1 && widthOf(shortened(names, shown), value) > room) --shown;
  return names ? shortened(names, shown) : nil;
}

- (void)setCellEnabled:(BOOL)enabled {
  [super setCellEnabled:enabled];
  [[self detailTextLabel] setTextColor:enabled ? [UIColor secondaryLabelColor] : [UIColor tertiaryLabelColor]];
}

@end
