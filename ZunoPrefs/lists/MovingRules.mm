#import "lists/MovingRules.h"

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <algorithm>

namespace zuno {
namespace {

/// Removes the record at `row` from `list` and returns it, nil when there is none.
objcxx::Retained<NSObject> take(NSMutableArray *list, NSInteger row) {
  if (row < 0 || static_cast<NSUInteger>(row) >= [list count]) return nullptr;
  auto record = objcxx::share((NSObject *)[list objectAtIndex:static_cast<NSUInteger>(row)]);
  [list removeObjectAtIndex:static_cast<NSUInteger>(row)];
  return record;
}

void insert(NSObject *record, NSMutableArray *list, NSInteger row) {
  const auto place = static_cast<NSUInteger>(std::max<NSInteger>(row, 0));
  [list insertObject:record atIndex:std::min(place, [list count])];
}

bool isSection(NSInteger section) { return section == kEnabledSection || section == kDisabledSection; }

}  // namespace

void MovingRules::drag(NSIndexPath *from, NSIndexPath *to, NSMutableArray *enabled, NSMutableArray *disabled) const {
  if (!isSection([from section]) || !isSection([to section])) return;
  NSMutableArray *source = [from section] == kEnabledSection ? enabled : disabled;
  NSMutableArray *target = [to section] == kEnabledSection ? enabled : disabled;
  const auto record = take(source, [from row]);
  if (!record) return;

  if (source == target) {
    insert(record.get(), target, [to row]);
  } else if ([target count] == 0) {
    [target addObject:record.get()];
  } else {
    if (target == enabled && [enabled count] >= kLimit) evictLast(enabled, disabled);
    insert(record.get(), target, [to row]);
  }
}

bool MovingRules::tap(NSIndexPath *row, NSMutableArray *enabled, NSMutableArray *disabled) const {
  if (!isSection([row section])) return true;
  const bool enabling = [row section] == kDisabledSection;
  const auto record = take(enabling ? disabled : enabled, [row row]);
  if (!record) return false;

  if (enabling && policy_.tapEvicts && [enabled count] >= kLimit) evictLast(enabled, disabled);
  [enabling ? enabled : disabled addObject:record.get()];
  return true;
}

void MovingRules::evictLast(NSMutableArray *enabled, NSMutableArray *disabled) const {
  const auto last = objcxx::share((NSObject *)[enabled lastObject]);
  [enabled removeObject:last.get()];
  if (policy_.evictedIsDisabled) [disabled addObject:last.get()];
}

}  // namespace zuno
