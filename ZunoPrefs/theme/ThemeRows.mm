#import "theme/ThemeRows.h"

#import <Preferences/PSSpecifier.h>

#import "core/PreferenceRow.h"

namespace zuno {
namespace {

NSString *const kThemeEnabled = @"enabled";

/// As readers of the file take a switch: on for every number but 0; the "default" stands in for what is no number.
bool isOn(PSSpecifier *row, const PreferenceFile &file) {
  return [numberOrDefault(rowValue(row, file), row) doubleValue] != 0;
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
      [row setProperty:[NSNumber numberWithBool:NO] forKey:kThemeEnabled];
      continue;
    }
    NSString *key = rowText(row, @"key");
    if ([row cellType] == PSSwitchCell && key && isOn(row, file)) [on addObject:key];
  }
}

}  // namespace zuno
