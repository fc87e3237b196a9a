#import "core/PropertyListObject.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace zuno {
namespace {

struct ObjectMaker {
  id operator()(bool value) const { return [NSNumber numberWithBool:value]; }
  id operator()(std::int64_t value) const { return [NSNumber numberWithLongLong:value]; }
  id operator()(std::uint64_t value) const { return [NSNumber numberWithUnsignedLongLong:value]; }
  id operator()(float value) const { return [NSNumber numberWithFloat:value]; }
  id operator()(double value) const { return [NSNumber numberWithDouble:value]; }
  id operator()(std::string_view text) const {
    return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
  }
  id operator()(const std::string &text) const { return (*this)(std::string_view(text)); }
};

}  // namespace

id objectOf(const ScannedValue &value) { return std::visit(ObjectMaker{}, value); }

}  // namespace zuno
