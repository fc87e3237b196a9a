#import "Foundation/ObjectWalker.h"

#include "Foundation/Text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace sim {

namespace {

class Walker final {
 public:
  Walker(Vocabulary vocabulary, KeyOrder order, ValueSink &sink)
      : vocabulary_(vocabulary), order_(order), sink_(sink), booleanClass_([[NSNumber numberWithBool:YES] class]) {}

  Problem run(id root) {
    if (visit(root)) return std::nullopt;
    return problem_.empty() ? "The value was not taken" : problem_;
  }

 private:
  bool fail(std::string problem) {
    if (problem_.empty()) problem_ = std::move(problem);
    return false;
  }

  bool visit(id object) {
    if ([object isKindOfClass:[NSString class]]) return text(object, text_) && sink_.string(text_);
    if ([object isKindOfClass:[NSNumber class]]) return visitNumber(object);
    if ([object isKindOfClass:[NSDictionary class]]) return visitDictionary(object);
    if ([object isKindOfClass:[NSArray class]]) return visitArray(object);
    if (vocabulary_ == Vocabulary::json) {
      if ([object isKindOfClass:[NSNull class]]) return sink_.null();
    } else {
      if ([object isKindOfClass:[NSData class]]) return visitData(object);
      if ([object isKindOfClass:[NSDate class]]) return sink_.date([object timeIntervalSinceReferenceDate]);
    }
    return fail(object ? std::string("Objects of the class ") + [NSStringFromClass([object class]) UTF8String] +
                             " have no place here"
                       : "There is no object");
  }

  bool text(NSString *string, std::string &result) { return getUTF8(string, result) || fail(std::string(kBrokenText)); }

  bool visitNumber(NSNumber *number) {
    if ([number isKindOfClass:booleanClass_]) return sink_.boolean([number boolValue]);
    const char type = *[number objCType];
    if (std::strchr("fd", type)) {
      const double value = [number doubleValue];
      if (vocabulary_ == Vocabulary::json && !std::isfinite(value)) return fail("JSON holds finite numbers only");
      return sink_.real(value);
    }
    const auto isUnsigned = std::strchr("CSILQ", type) != nullptr;
    if (isUnsigned && [number unsignedLongLongValue] > INT64_MAX) {
      return sink_.unsignedInteger([number unsignedLongLongValue]);
    }
    return sink_.integer([number longLongValue]);
  }

  bool visitData(NSData *data) {
    return sink_.data({static_cast<const std::byte *>([data bytes]), static_cast<std::size_t>([data length])});
  }

  bool enter() { return ++depth_ <= kMaximumDepth || fail("The containers lie too deep, or hold themselves"); }

  bool visitArray(NSArray *array) {
    if (!enter() || !sink_.beginArray([array count])) return false;
    for (id item in array) {
      if (!visit(item)) return false;
    }
    --depth_;
    return sink_.endArray();
  }

  bool visitDictionary(NSDictionary *dictionary) {
    if (!enter()) return false;
    std::vector<std::pair<std::string, id>> entries;
    entries.reserve([dictionary count]);
    for (id key in dictionary) {
      if (![key isKindOfClass:[NSString class]]) return fail("A key is not a string");
      entries.emplace_back(std::string(), [dictionary objectForKey:key]);
      if (!text(key, entries.back().first)) return false;
    }
    if (order_ == KeyOrder::sorted) {
      std::sort(entries.begin(), entries.end(),
                [](const auto &one, const auto &other) { return one.first < other.first; });
    }
    if (!sink_.beginDictionary(entries.size())) return false;
    for (const auto &[key, value] : entries) {
      if (!sink_.key(key) || !visit(value)) return false;
    }
    --depth_;
    return sink_.endDictionary();
  }

  const Vocabulary vocabulary_;
  const KeyOrder order_;
  ValueSink &sink_;
  const Class booleanClass_;
  std::size_t depth_ = 0;
  std::string text_;
  std::string problem_;
};

}  // namespace

Problem walkObject(id root, Vocabulary vocabulary, KeyOrder order, ValueSink &sink) {
  return Walker(vocabulary, order, sink).run(root);
}

}  // namespace sim
