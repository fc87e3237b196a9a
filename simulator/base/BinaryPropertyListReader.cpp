#include "base/BinaryPropertyListReader.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>
#include <vector>

#include "base/UTF8.hpp"

namespace sim {

namespace {

constexpr std::size_t kHeaderSize = 8, kTrailerSize = 32;

class Reader final {
 public:
  Reader(std::span<const std::byte> document, ValueSink& sink)
      : document_(document),
        sink_(sink),
        valueBudget_(document.size()),
        byteBudget_(document.size() * 16 + (64u << 20)) {}

  Problem run() {
    if (readTrailer() && readObject(top_)) {
      while (!open_.empty()) {
        if (!readNext()) return problem_;
      }
      return std::nullopt;
    }
    return problem_;
  }

 private:
  struct Frame {
    bool dictionary;
    std::size_t references;  // Where the references start: keys first, then values.
    std::size_t count;
    std::size_t next = 0;
  };

  bool fail(std::string problem) {
    if (problem_.empty()) problem_ = std::move(problem);
    return false;
  }

  bool tell(bool accepted) { return accepted || fail("The value was not taken"); }

  /// The big-endian number of `size` bytes (1 to 8) at `at`, which the caller has checked.
  std::uint64_t number(std::size_t at, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value = (value << 8) | std::to_integer<std::uint64_t>(document_[at + i]);
    return value;
  }

  /// Whether `count` elements of `size` bytes lie between `at` and the offset table.
  bool fits(std::size_t at, std::uint64_t count, std::size_t size) {
    return (at <= table_ && count <= (table_ - at) / size) || fail("An object reaches beyond the document");
  }

  bool readTrailer() {
    if (document_.size() < kHeaderSize + 1 + kTrailerSize) return fail("The document ends early");
    const auto trailer = document_.size() - kTrailerSize;
    offsetSize_ = number(trailer + 6, 1);
    referenceSize_ = number(trailer + 7, 1);
    objects_ = number(trailer + 8, 8);
    top_ = number(trailer + 16, 8);
    const auto table = number(trailer + 24, 8);
    const auto sizeIsGood = [](std::size_t size) { return size >= 1 && size <= 8; };
    if (!sizeIsGood(offsetSize_) || !sizeIsGood(referenceSize_)) return fail("The trailer is malformed");
    if (table <= kHeaderSize || table > trailer) return fail("The trailer is malformed");
    table_ = table;
    if (objects_ > (trailer - table) / offsetSize_ || top_ >= objects_) return fail("The trailer is malformed");
    return true;
  }

  bool spend(std::size_t bytes) {
    if (valueBudget_ == 0 || bytes > byteBudget_) return fail("The document unfolds to too much");
    --valueBudget_;
    byteBudget_ -= bytes;
    return true;
  }

  bool readNext() {
    auto& frame = open_.back();
    if (frame.next == frame.count) {
      const bool dictionary = frame.dictionary;
      open_.pop_back();
      return tell(dictionary ? sink_.endDictionary() : sink_.endArray());
    }
    const auto index = frame.next++;
    const auto reference = [&](std::size_t i) { return number(frame.references + i * referenceSize_, referenceSize_); };
    if (!frame.dictionary) return readObject(reference(index));
    const auto value = reference(frame.count + index);
    return readKey(reference(index)) && readObject(value);
  }

  bool offsetOf(std::uint64_t object, std::size_t& at) {
    if (object >= objects_) return fail("A reference names no object");
    at = number(table_ + object * offsetSize_, offsetSize_);
    return (at >= kHeaderSize && at < table_) || fail("An offset lies outside the objects");
  }

  /// Reads the count in the low half of the marker at `at`, or behind it, and moves `at` behind both.
  bool readCount(std::size_t& at, std::uint64_t& count) {
    count = number(at++, 1) & 0x0f;
    if (count != 0x0f) return true;
    if (!fits(at, 1, 1)) return false;
    const auto marker = number(at++, 1);
    if ((marker & 0xf0) != 0x10 || (marker & 0x0f) > 3) return fail("A count is malformed");
    const auto size = std::size_t{1} << (marker & 0x0f);
    if (!fits(at, size, 1)) return false;
    count = number(at, size);
    at += size;
    return true;
  }

  bool readKey(std::uint64_t object) {
    std::size_t at = 0;
    if (!offsetOf(object, at)) return false;
    const auto kind = number(at, 1) >> 4;
    if (kind != 5 && kind != 6) return fail("A key is not a string");
    return readText(at, kind == 6) && spend(text_.size()) && tell(sink_.key(text_));
  }

  bool readText(std::size_t at, bool wide) {
    std::uint64_t count = 0;
    if (!readCount(at, count) || !fits(at, count, wide ? 2 : 1)) return false;
    if (wide) {
      auto text = utf8FromUTF16(document_.subspan(at, 2 * count), std::endian::big);
      if (!text) return fail("A text is not UTF-16");
      text_ = *std::move(text);
      return true;
    }
    const auto* characters = reinterpret_cast<const char*>(document_.data() + at);
    text_.assign(characters, count);
    const auto isASCII = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
    return std::all_of(text_.begin(), text_.end(), isASCII) || fail("A text is not ASCII");
  }

  bool readObject(std::uint64_t object) {
    std::size_t at = 0;
    if (!offsetOf(object, at)) return false;
    const auto marker = number(at, 1);
    switch (marker >> 4) {
      case 0x0:
        if (marker != 0x08 && marker != 0x09) return fail("An object is of an unknown kind");
        return spend(0) && tell(sink_.boolean(marker == 0x09));
      case 0x1: return spend(0) && readInteger(at + 1, marker & 0x0f);
      case 0x2:
      case 0x3: return spend(0) && readReal(at + 1, static_cast<unsigned>(marker));
      case 0x4: return readData(at);
      case 0x5:
      case 0x6: return readText(at, marker >> 4 == 6) && spend(text_.size()) && tell(sink_.string(text_));
      case 0xa:
      case 0xd: return openContainer(at, marker >> 4 == 0xd);
      default: return fail("An object is of an unknown kind");
    }
  }

  bool readInteger(std::size_t at, std::size_t power) {
    if (power > 4 || !fits(at, std::uint64_t{1} << power, 1)) return fail("An integer is malformed");
    if (power < 4) {
      const auto value = number(at, std::size_t{1} << power);  // Shorter ones have no sign.
      return tell(sink_.integer(static_cast<std::int64_t>(value)));
    }
    const auto high = number(at, 8), low = number(at + 8, 8);
    const bool negative = static_cast<std::int64_t>(low) < 0;
    if (high == (negative ? ~std::uint64_t{0} : 0)) return tell(sink_.integer(static_cast<std::int64_t>(low)));
    if (high == 0) return tell(sink_.unsignedInteger(low));
    return fail("An integer has more than 64 bits");
  }

  bool readReal(std::size_t at, unsigned marker) {
    const auto power = marker & 0x0f;
    const bool date = marker == 0x33;
    if (!date && marker != 0x22 && marker != 0x23) return fail("A real number is malformed");
    if (!fits(at, std::uint64_t{1} << power, 1)) return false;
    if (power == 2) {
      return tell(sink_.real(std::bit_cast<float>(static_cast<std::uint32_t>(number(at, 4)))));
    }
    const auto value = std::bit_cast<double>(number(at, 8));
    if (date && !std::isfinite(value)) return fail("A date is no point in time");
    return tell(date ? sink_.date(value) : sink_.real(value));
  }

  bool readData(std::size_t at) {
    std::uint64_t count = 0;
    return readCount(at, count) && fits(at, count, 1) && spend(count) && tell(sink_.data(document_.subspan(at, count)));
  }

  bool openContainer(std::size_t at, bool dictionary) {
    std::uint64_t count = 0;
    if (!readCount(at, count) || !fits(at, count, referenceSize_ * (dictionary ? 2 : 1)) || !spend(0)) return false;
    if (open_.size() == kMaximumDepth) return fail("The containers lie too deep");
    if (!tell(dictionary ? sink_.beginDictionary(count) : sink_.beginArray(count))) return false;
    open_.push_back({dictionary, at, count});
    return true;
  }

  const std::span<const std::byte> document_;
  ValueSink& sink_;
  std::uint64_t valueBudget_, byteBudget_;
  std::size_t offsetSize_ = 0, referenceSize_ = 0, table_ = 0;
  std::uint64_t objects_ = 0, top_ = 0;
  std::vector<Frame> open_;
  std::string text_;
  std::string problem_;
};

}  // namespace

Problem readBinaryPropertyList(std::span<const std::byte> document, ValueSink& sink) {
  return Reader(document, sink).run();
}

}  // namespace sim
