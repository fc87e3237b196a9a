#include "base/BinaryPropertyListWriter.hpp"

#include <algorithm>
#include <bit>
#include <utility>

#include "base/UTF8.hpp"

namespace sim {

namespace {

void appendNumber(std::string& text, std::uint64_t value, std::size_t size) {
  while (size-- > 0) text.push_back(static_cast<char>(value >> (8 * size)));
}

std::size_t sizeOf(std::uint64_t value) {
  return value < 1u << 8 ? 1 : value < 1u << 16 ? 2 : value >> 32 == 0 ? 4 : 8;
}

std::string integerBytes(std::uint64_t value) {
  const auto size = sizeOf(value);
  std::string bytes(1, static_cast<char>(0x10 | std::countr_zero(size)));
  appendNumber(bytes, value, size);
  return bytes;
}

/// A marker of the kind `kind` (its high half) with a count.
std::string counted(unsigned kind, std::size_t count) {
  constexpr std::size_t kLong = 15;
  std::string bytes(1, static_cast<char>(kind | std::min(count, kLong)));
  return count < kLong ? bytes : bytes + integerBytes(count);
}

/// UTF-16, big endian. `text` is valid UTF-8.
std::string wide(std::string_view text) {
  std::string bytes;
  for (const auto unit : utf16FromUTF8(text)) appendNumber(bytes, unit, 2);
  return bytes;
}

}  // namespace

void BinaryPropertyListWriter::refer(std::size_t object) {
  if (!open_.empty()) open_.back().values.push_back(object);
}

bool BinaryPropertyListWriter::add(std::string bytes) {
  refer(objects_.size());
  objects_.push_back({std::move(bytes), {}});
  return true;
}

bool BinaryPropertyListWriter::begin() {
  refer(objects_.size());
  open_.push_back({objects_.size(), {}, {}});
  objects_.emplace_back();
  return true;
}

bool BinaryPropertyListWriter::end(unsigned marker) {
  auto frame = std::move(open_.back());
  open_.pop_back();
  auto& object = objects_[frame.object];
  object.bytes = counted(marker, frame.values.size());
  object.references = std::move(frame.keys);
  object.references.insert(object.references.end(), frame.values.begin(), frame.values.end());
  return true;
}

std::size_t BinaryPropertyListWriter::textObject(std::string_view text) {
  const auto [place, isNew] = texts_.try_emplace(std::string(text), objects_.size());
  if (!isNew) return place->second;
  const bool ascii = std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  const auto content = ascii ? std::string(text) : wide(text);
  objects_.push_back({counted(ascii ? 0x50 : 0x60, ascii ? content.size() : content.size() / 2) + content, {}});
  return place->second;
}

bool BinaryPropertyListWriter::beginDictionary(std::size_t) { return begin(); }
bool BinaryPropertyListWriter::endDictionary() { return end(0xd0); }
bool BinaryPropertyListWriter::beginArray(std::size_t) { return begin(); }
bool BinaryPropertyListWriter::endArray() { return end(0xa0); }

bool BinaryPropertyListWriter::key(std::string_view text) {
  const auto object = textObject(text);
  open_.back().keys.push_back(object);
  return true;
}

bool BinaryPropertyListWriter::string(std::string_view text) {
  refer(textObject(text));
  return true;
}

bool BinaryPropertyListWriter::integer(std::int64_t value) {
  if (value >= 0) return add(integerBytes(static_cast<std::uint64_t>(value)));
  std::string bytes(1, '\x13');
  appendNumber(bytes, static_cast<std::uint64_t>(value), 8);
  return add(std::move(bytes));
}

bool BinaryPropertyListWriter::unsignedInteger(std::uint64_t value) {
  std::string bytes(1, '\x14');
  appendNumber(bytes, 0, 8);
  appendNumber(bytes, value, 8);
  return add(std::move(bytes));
}

bool BinaryPropertyListWriter::real(double value) {
  std::string bytes(1, '\x23');
  appendNumber(bytes, std::bit_cast<std::uint64_t>(value), 8);
  return add(std::move(bytes));
}

bool BinaryPropertyListWriter::boolean(bool value) { return add(std::string(1, value ? '\x09' : '\x08')); }

bool BinaryPropertyListWriter::date(double seconds) {
  std::string bytes(1, '\x33');
  appendNumber(bytes, std::bit_cast<std::uint64_t>(seconds), 8);
  return add(std::move(bytes));
}

bool BinaryPropertyListWriter::data(std::span<const std::byte> bytes) {
  auto object = counted(0x40, bytes.size());
  object.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return add(std::move(object));
}

bool BinaryPropertyListWriter::null() { return false; }

std::string BinaryPropertyListWriter::finished() && {
  const auto referenceSize = sizeOf(objects_.size());
  std::string document = "bplist00";
  std::vector<std::size_t> offsets;
  for (const auto& object : objects_) {
    offsets.push_back(document.size());
    document += object.bytes;
    for (const auto reference : object.references) appendNumber(document, reference, referenceSize);
  }
  const auto table = document.size(), offsetSize = sizeOf(table);
  for (const auto offset : offsets) appendNumber(document, offset, offsetSize);
  document.append(6, '\0');
  appendNumber(document, offsetSize, 1);
  appendNumber(document, referenceSize, 1);
  appendNumber(document, objects_.size(), 8);
  appendNumber(document, 0, 8);
  appendNumber(document, table, 8);
  return document;
}

}  // namespace sim
