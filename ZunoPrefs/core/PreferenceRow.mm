#import "core/PreferenceRow.h"

#import <CoreFoundation/CoreFoundation.h>
#import <Preferences/PSSpecifier.h>

#include <cmath>

namespace zuno {
namespace {

bool isFiniteNumber(id value) { return [value isKindOfClass:[NSNumber class]] && std::isfinite([value doubleValue]); }

}  // namespace

NSString *const kUserAgentRow = @"User-Agent";

NSString *rowText(PSSpecifier *row, NSString *name) {
  id text = [row propertyForKey:name];
  return [text isKindOfClass:[NSString class]] && [text length] > 0 ? text : nil;
}

id rowValue(PSSpecifier *row, const PreferenceFile &file) {
  NSString *key = rowText(row, @"key");
  if ([key isEqualToString:@"presetUserAgent"]) {
    return [NSString stringWithFormat:@"%@/%@", file.value(@"device"), file.value(@"iosVersion")];
  }
  return file.value(key) ?: [row propertyForKey:@"default"];
}

NSNumber *numberOrDefault(id value, PSSpecifier *row) {
  if (isFiniteNumber(value)) return value;
  id initial = [row propertyForKey:PSDefaultValueKey];
  return isFiniteNumber(initial) ? initial : nil;
}

void setRowValue(id value, PSSpecifier *row, const PreferenceFile &file) {
  file.setValue(value, [row propertyForKey:@"key"]);
  if (NSString *notification = rowText(row, @"PostNotification")) {
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), (CFStringRef)notification,
                                         nullptr, nullptr, true);
  }
}

bool isPartOfUserAgent(PSSpecifier *row) {
  NSString *key = rowText(row, @"key");
  return [key isEqualToString:@"device"] || [key isEqualToString:@"iosVersion"];
}

}  // namespace zuno
