// Scans property lists in the binary format.
#include <cstring>
#include <utility>
#include <vector>

#include "core/PropertyListScanFormats.hpp"
#include "core/PropertyListScanText.hpp"

namespace zuno::detail {
namespace {

constexpr std::string_view kMagic = "bplist00";
constexpr std::size_t kTrailerSize = 32;

/// The kinds of object that this scanner knows: the upper half of their first byte.
enum Kind : unsigned {
  kBoolean = 0x0,
  kInteger = 0x1,
  kReal = 0x2,
  kASCII = 0x5,
  kUTF16 = 0x6,
  kArray = 0xa,
  kDictionary = 0xd,
};

class Scanner final {
 public:
  Scanner(std::string_view document, const Lookups& lookups) : document_(document), lookups_(lookups) {}

  bool readDocument() {
    if (!readTrailer() || !readRoot()) return false;
    while (!pending_.empty()) {
      const auto container = pending_.back();
      pending_.pop_back();
      if (!checkEntries(container)) return false;
    }
    return true;
  }

 private:
  struct Object {
    Kind kind;
    unsigned low;             // The lower half of the first byte.
    std::size_t content;      // Where the content starts, behind the first byte and the count.
    std::uint64_t count = 0;  // The number of units in the content.
    std::size_t unit = 1;     // The number of bytes in a unit: a byte, half a surrogate pair, an item or an entry.

    std::string_view bytesIn(std::string_view document) const { return document.substr(content, count * unit); }
  };

  struct Container {
    Object object;
    std::size_t depth;  // The root's is 1.
  };

  /// The big-endian number of `size` bytes (1 to 8) at `at`, which must lie in the document.
  std::uint64_t number(std::size_t at, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value = value << 8 | static_cast<unsigned char>(document_[at + i]);
    return value;
  }

  bool readTrailer() {
    if (document_.size() < kMagic.size() + kTrailerSize || document_.substr(0, kMagic.size()) != kMagic) return false;
    const std::size_t trailer = document_.size() - kTrailerSize;
    offsetSize_ = number(trailer + 6, 1);
    referenceSize_ = number(trailer + 7, 1);
    objects_ = number(trailer + 8, 8);
    root_ = number(trailer + 16, 8);
    table_ = number(trailer + 24, 8);
    if (table_ > trailer || !canHold(offsetSize_, table_) || !canHold(referenceSize_, objects_)) return false;
    const std::size_t tableSize = trailer - table_;
    if (tableSize % offsetSize_ != 0 || tableSize / offsetSize_ != objects_) return false;
    for (std::uint64_t i = 0; i < objects_; ++i) {
      const auto offset = offsetOf(i);
      if (offset < kMagic.size() || offset >= table_) return false;
    }
    return true;
  }

  /// Whether `size` bytes are a legal size for a number that may be as large as `value`.
  static bool canHold(std::size_t size, std::uint64_t value) {
    return size > 0 && size <= 8 && (size == 8 || value >> (8 * size) == 0);
  }

  std::uint64_t offsetOf(std::uint64_t reference) const {
    return number(table_ + reference * offsetSize_, offsetSize_);
  }

  /// The reference at place `index` of the references that start at `at`.
  std::uint64_t reference(std::size_t at, std::uint64_t index) const {
    return number(at + index * referenceSize_, referenceSize_);
  }

  bool contentFits(const Object& object) const {
    return object.content <= table_ && object.count <= (table_ - object.content) / object.unit;
  }

  /// Reads the start of the object that `reference` names and checks that its content lies before the offset table.
  bool readObject(std::uint64_t reference, Object& object) const {
    if (reference >= objects_) return false;
    const std::size_t at = offsetOf(reference);
    const auto marker = number(at, 1);
    object = {static_cast<Kind>(marker >> 4), static_cast<unsigned>(marker & 0x0f), at + 1};
    switch (object.kind) {
      case kBoolean: return object.low == 8 || object.low == 9;
      case kInteger: object.count = std::uint64_t{1} << object.low; return object.low <= 4 && contentFits(object);
      case kReal:
        object.count = std::uint64_t{1} << object.low;
        return (object.low == 2 || object.low == 3) && contentFits(object);
      case kASCII: break;
      case kUTF16: object.unit = 2; break;
      case kArray: object.unit = referenceSize_; break;
      case kDictionary: object.unit = 2 * referenceSize_; break;
      default: return false;
    }
    return readCount(object) && contentFits(object);
  }

  /// The lower half of an object's first byte is its count or, when it is 15, says that an integer with the count
  /// follows. One that reaches into the offset table leaves no room for the content, which is checked afterwards; the
  /// trailer behind the table is longer than any.
  bool readCount(Object& object) const {
    object.count = object.low;
    if (object.low != 0x0f) return true;
    const auto marker = number(object.content++, 1);
    if (marker < 0x10 || marker > 0x13) return false;
    const std::size_t size = std::size_t{1} << (marker & 0x0f);
    object.count = number(object.content, size);
    object.content += size;
    return true;
  }

  /// Looks for the keys among the root's, which are checked with all other objects.
  bool readRoot() {
    Object root;
    if (!readObject(root_, root) || root.kind != kDictionary) return false;
    isChecked_.resize(objects_);
    pending_.push_back({root, 1});
    lookups_.setAbsent();
    for (std::uint64_t i = 0; i < root.count; ++i) {
      Object key;
      if (!readObject(reference(root.content, i), key)) continue;
      const auto place = lookups_.find([&](std::string_view wanted) { return equals(key, wanted); });
      if (place == lookups_.keys.size()) continue;
      Object value;
      if (!lookups_.setFound(place) || !readObject(reference(root.content, root.count + i), value) ||
          !readValue(value, lookups_.results[place].value)) {
        return false;
      }
    }
    return true;
  }

  bool equals(const Object& object, std::string_view key) const {
    if (object.kind == kASCII) return object.bytesIn(document_) == key;
    if (object.kind != kUTF16 || object.count > key.size()) return false;
    std::string text;
    return appendUTF16(object.bytesIn(document_), &text) && text == key;
  }

  /// Gives the value of `object`, which is checked with all the others.
  bool readValue(const Object& object, ScannedValue& value) const {
    switch (object.kind) {
      case kBoolean: value = object.low == 9; return true;
      case kInteger:
        if (object.low == 4) {
          value = number(object.content + 8, 8);
        } else {
          value = static_cast<std::int64_t>(number(object.content, std::size_t{1} << object.low));
        }
        return true;
      case kReal:
        if (object.low == 2) {
          value = floating<float>(static_cast<std::uint32_t>(number(object.content, 4)));
        } else {
          value = floating<double>(number(object.content, 8));
        }
        return true;
      case kASCII: value = object.bytesIn(document_); return true;
      case kUTF16: {
        std::string text;
        (void)appendUTF16(object.bytesIn(document_), &text);
        value = std::move(text);
        return true;
      }
      default: return false;
    }
  }

  template <typename Floating, typename Bits>
  static Floating floating(Bits bits) {
    static_assert(sizeof(Floating) == sizeof bits);
    Floating value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }

  bool checkEntries(const Container& container) {
    const auto& object = container.object;
    const bool isDictionary = object.kind == kDictionary;
    for (std::uint64_t i = 0; i < object.count; ++i) {
      if (isDictionary && !check(reference(object.content, i), Role::kKey, container.depth)) return false;
      const auto value = reference(object.content, isDictionary ? object.count + i : i);
      if (!check(value, Role::kValue, container.depth)) return false;
    }
    return true;
  }

  enum class Role { kKey, kValue };

  /// Checks the object that `reference` names, once. A container that is named twice is not for this scanner; one that
  /// holds itself is such a container.
  bool check(std::uint64_t reference, Role role, std::size_t depth) {
    Object object;
    if (!readObject(reference, object)) return false;
    if (role == Role::kKey && object.kind != kASCII && object.kind != kUTF16) return false;
    const bool isContainer = object.kind == kArray || object.kind == kDictionary;
    if (isChecked_[reference]) return !isContainer;
    isChecked_[reference] = true;
    if (!spend(object)) return false;
    if (isContainer) {
      pending_.push_back({object, depth + 1});
      return depth < kMaximumDepth;
    }
    if (object.kind == kASCII) return isASCII(object.bytesIn(document_));
    // Some readers refuse an empty text in UTF-16.
    if (object.kind == kUTF16) return object.count > 0 && appendUTF16(object.bytesIn(document_), nullptr);
    return object.kind != kInteger || object.low < 4 || isLargeInteger(object);
  }

  /// Counts the content of the checked objects, which together are no larger than the document unless they overlap: a
  /// document of overlapping objects could take time beyond all proportion to its size.
  bool spend(const Object& object) {
    const std::size_t size = object.count * object.unit;
    if (size > document_.size() - spent_) return false;
    spent_ += size;
    return true;
  }

  /// Sixteen bytes are written for the numbers that only an unsigned number of eight bytes holds.
  bool isLargeInteger(const Object& object) const {
    return number(object.content, 8) == 0 && number(object.content + 8, 8) >> 63 == 1;
  }

  const std::string_view document_;
  const Lookups& lookups_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::size_t table_ = 0;  // Where the offset table starts; the objects lie before it.
  std::uint64_t objects_ = 0;
  std::uint64_t root_ = 0;
  std::vector<bool> isChecked_;     // By reference.
  std::vector<Container> pending_;  // Checked containers whose entries are not.
  std::size_t spent_ = 0;           // The bytes in the content of all checked objects.
};

}  // namespace

bool scanBinaryPropertyList(std::string_view document, const Lookups& lookups) {
  return Scanner(document, lookups).readDocument();
}

}  // namespace zuno::detail
