// The property-list look-up of the slice over samples that were made, and looked up, on this computer.
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Image.hpp"
#include "SampleFile.hpp"
#include "Tests.hpp"
#include "core/PropertyListScan.hpp"

namespace device_test {
namespace {

using LookUp = zuno::PropertyListScan(std::span<const std::byte>, std::string_view) noexcept;

class Reader final {
 public:
  explicit Reader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  bool isAtEnd() const { return rest_.empty(); }

  std::uint32_t number() {
    std::uint32_t result;
    std::memcpy(&result, take(sizeof result).data(), sizeof result);
    return result;
  }

  std::string_view text() { return take(number()); }

 private:
  std::string_view take(std::size_t size) {
    if (size > rest_.size()) fail("the file of samples is cut off");
    const auto* start = reinterpret_cast<const char*>(rest_.data());
    rest_ = rest_.subspan(size);
    return {start, size};
  }

  std::span<const std::uint8_t> rest_;
};

}  // namespace

std::string testLookUp(const Image& image, std::span<const std::uint8_t> samples, Depth depth) {
  const auto lookUp = reinterpret_cast<LookUp*>(
      image.exported("__ZN4zuno16scanPropertyListENSt3__14spanIKSt4byteLm18446744073709551615EEE"
                     "NS0_17basic_string_viewIcNS0_11char_traitsIcEEEE"));
  Reader reader(samples);
  std::size_t documents = 0, answers = 0;
  while (!reader.isAtEnd() && (depth == Depth::kThorough || documents < 20)) {
    const auto document = reader.text();
    // A copy of its own size, so that the emulator's allocator has what lies behind it.
    const std::vector<char> copy(document.begin(), document.end());
    for (auto keys = reader.number(); keys > 0; --keys) {
      const std::string key(reader.text());
      const auto expected = reader.text();
      const auto found = encoded(lookUp(std::as_bytes(std::span(copy)), key));
      if (found != expected)
        fail("the look-up of \"" + key + "\" in sample " + decimal(documents) + " has another answer");
      ++answers;
    }
    ++documents;
  }
  return decimal(answers) + " look-ups in " + decimal(documents) + " property lists answer as on this computer";
}

}  // namespace device_test
