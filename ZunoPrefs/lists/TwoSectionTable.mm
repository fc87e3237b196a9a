#import "lists/TwoSectionTable.h"

#import <QuartzCore/QuartzCore.h>

#import "lists/MovingRules.h"

namespace zuno {
namespace {

NSString *const kCellIdentifier = @"Cell";

}  // namespace

void prepareForEditing(UITableView *table) {
  [table setEditing:YES animated:NO];
  [table setAllowsSelectionDuringEditing:YES];
}

NSString *sectionTitle(NSInteger section) {
  return section == kEnabledSection ? @"Enabled - Tap/Drag to disable." : @"Disabled - Tap/Drag to enable.";
}

NSMutableArray *sectionList(NSInteger section, NSMutableArray *enabled, NSMutableArray *disabled) {
  return section == kEnabledSection ? enabled : disabled;
}

bool canEditRows(NSInteger section, NSArray *enabled, NSArray *disabled) {
  if (section == kEnabledSection) return [enabled count] > 0;
  if (section == kDisabledSection) return [disabled count] > 0;
  return true;
}

NSInteger rowCount(NSArray *list) {
  const auto count = static_cast<NSInteger>([list count]);
  return count > 0 ? count : 1;
}

UITableViewCell *listCell(UITableView *table) {
  UITableViewCell *cell = [table dequeueReusableCellWithIdentifier:kCellIdentifier];
  if (cell) return cell;
  return [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle
                                 reuseIdentifier:kCellIdentifier] autorelease];
}

void showPlaceholder(UITableViewCell *cell, NSString *text) {
  [[cell textLabel] setText:text];
  [[cell detailTextLabel] setText:@""];
  [[cell imageView] setImage:nil];
}

void styleIcon(UITableViewCell *cell) {
  UIImageView *icon = [cell imageView];
  CALayer *layer = [icon layer];
  [layer setShadowColor:[[UIColor grayColor] CGColor]];
  [layer setShadowOffset:CGSizeMake(0, 1)];
  [layer setShadowOpacity:0.3f];
  [layer setShadowRadius:1.0];
  [icon setClipsToBounds:NO];
  [icon setContentMode:UIViewContentModeScaleAspectFit];
}

}  // namespace zuno
