#import "theme/PresetString.h"

namespace zuno {

NSString *presetStringFrom(NSDictionary *preset) {
  if (![NSJSONSerialization isValidJSONObject:preset]) return nil;
  NSData *json = [NSJSONSerialization dataWithJSONObject:preset options:NSJSONWritingPrettyPrinted error:nullptr];
  return [json base64EncodedStringWithOptions:0];
}

id objectFromPresetString(NSString *text) {
  if (!text) return nil;
  NSData *json = [[[NSData alloc] initWithBase64EncodedString:text options:0] autorelease];
  if (!json) return nil;
  return [NSJSONSerialization JSONObjectWithData:json options:NSJSONReadingFragmentsAllowed error:nullptr];
}

}  // namespace zuno
