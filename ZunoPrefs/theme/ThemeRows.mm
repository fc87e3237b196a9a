#import "theme/ThemeRows.h"

#import <Preferences/PSSpecifier.h>

#import "core/PreferenceRow.h"

namespace zuno {
namespace {

NSString *const kEnabled = @"enabled";

bool isOn(PSSpecifier *row, const PreferenceFile &file) {
  id value = rowValue(row, file);
  return [value respondsToSelector:@selector(boolValue)] && [value boolValue];
}

}  // namespace

void removeRowsWithoutUse(NSMutableArray *rows, bool hasPhoto) {
  NSString *unwanted = hasPhoto ? @"noPhoto" : @"photo";
  for (PSSpecifier *row in [NSArray arrayWithArray:rows]) {
    if ([rowText(row, @"shownWhile") isEqualToString:unwanted]) [rows removeObject:row];
  }
}

void disableDependentRows(NSArray *rows, const PreferenceFile &file) {
  NSMutableSet *on = [NSMutableSet set];
  NSString *ofGroup = nil;
  for (PSSpecifier *row in rows) {
    NSString *own = rowText(row, @"dependsOn");
    if ([row cellType] == PSGroupCell) {
      ofGroup = own;
      continue;
    }
    NSString *needed = own ?: ofGroup;
    if (needed && ![on containsObject:needed]) {
      [row setProperty:[NSNumber numberWithBool:NO] forKey:kEnabled];
      continue;
    }
    NSString *key = rowText(row, @"key");
    if ([row cellType] == PSSwitchCell && key && isOn(row, file)) [on addObject:key];
  }
}

bool isRowEnabled(PSSpecifier *row) {
  id enabled = [row propertyForKey:kEnabled];
  return ![enabled respondsToSelector:@selector(boolValue)] || [enabled boolValue];
}

}  // namespace zuno
