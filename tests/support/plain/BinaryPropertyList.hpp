// Binary property lists made by hand, sound or not.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace test {

/// A document of objects that refer to others by number, in references and offsets of four bytes. The first object that
/// is added is the root.
class BinaryPropertyList final {
 public:
  /// The bytes of one object, its marker first.
  void add(std::string_view bytes) {
    offsets_.push_back(document_.size());
    document_ += bytes;
  }
  void addArray(const std::vector<std::uint32_t>& references) {
    std::string bytes = counted(0xa0, references.size());
    for (const std::uint32_t reference : references) bytes += number(reference, 4);
    add(bytes);
  }
  void addDictionary(const std::vector<std::uint32_t>& keys, const std::vector<std::uint32_t>& values) {
    std::string bytes = counted(0xd0, keys.size());
    for (const std::uint32_t reference : keys) bytes += number(reference, 4);
    for (const std::uint32_t reference : values) bytes += number(reference, 4);
    add(bytes);
  }
  void addData(std::size_t size) { add(counted(0x40, size) + std::string(size, 'x')); }
  void addText(std::string_view ascii) { add(counted(0x50, ascii.size()).append(ascii)); }
  void addTrue() { add("\x09"); }

  std::string finish() const {
    std::string document = document_;
    for (const std::size_t offset : offsets_) document += number(offset, 4);
    return document + std::string("\0\0\0\0\0\0\4\4", 8) + number(offsets_.size(), 8) + number(0, 8) +
           number(document_.size(), 8);
  }

  /// `size` bytes, big endian.
  static std::string number(std::uint64_t value, int size) {
    std::string bytes;
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
    return bytes;
  }
  /// A marker with a count.
  static std::string counted(int marker, std::size_t count) {
    if (count < 15) return std::string(1, static_cast<char>(marker + static_cast<int>(count)));
    return std::string(1, static_cast<char>(marker + 15)) + "\x12" + number(count, 4);
  }

 private:
  std::string document_ = "bplist00";
  std::vector<std::size_t> offsets_;
};

}  // namespace test
