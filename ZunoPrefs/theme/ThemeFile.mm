#import "theme/ThemeFile.h"

#import <objcxx/Retained.h>

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
    const auto name = objcxx::adopt([[NSString alloc] initWithBytes:key.data()
                                                             length:key.size()
                                                           encoding:NSASCIIStringEncoding]);
    return themeValue([values objectForKey:name.get()]);
  });
}

}  // namespace zuno
