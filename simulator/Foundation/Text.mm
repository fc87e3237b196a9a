#import "Foundation/Text.h"

#include <algorithm>
#include <array>

#include "base/UTF8.hpp"

namespace sim {

bool getUTF8(NSString *string, std::string &result) {
  result.clear();
  const NSUInteger length = [string length];
  result.reserve(length);
  UTF16Decoder decoder;
  std::array<unichar, 2048> piece;
  for (NSUInteger start = 0; start < length; start += piece.size()) {
    const NSUInteger count = std::min<NSUInteger>(piece.size(), length - start);
    [string getCharacters:piece.data() range:NSMakeRange(start, count)];
    if (!decoder.append(result, {reinterpret_cast<const char16_t *>(piece.data()), count})) return false;
  }
  return decoder.complete();
}

}  // namespace sim
