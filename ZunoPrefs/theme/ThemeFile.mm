#import "theme/ThemeFile.h"

#import "core/PreferenceFile.h"

namespace zuno {
namespace {

ThemeValue themeValue(id value) {
  if ([value isKindOfClass:[NSNumber class]]) return [value doubleValue];
  if ([value isKindOfClass:[NSString class]]) return std::string([value UTF8String] ?: "");
  return {};
}

}  // namespace

Theme storedTheme() {
  NSDictionary *values = PreferenceFile::ofDomain(kThemeDomain).values(themeKeys());
  return themeFrom([&](std::string_view key) {
    NSString *name = [[[NSString alloc] initWithBytes:key.data() length:key.size() encoding:NSASCIIStringEncoding] autorelease];
    return themeValue([values objectForKey:name]);
  });
}

}  // namespace zuno
