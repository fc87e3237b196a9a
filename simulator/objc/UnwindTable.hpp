// The table that the compiler writes down for a function that has something to do when an exception passes: the
// language-specific data area, to the public description of the C++ ABI for Itanium.
#pragma once

#include <unwind.h>

#include <cstdint>
#include <cstring>

namespace sim {

class UnwindTable final {
 public:
  /// The place to which an exception goes in a function, and where the conditions for that stand.
  struct LandingPad {
    std::uintptr_t address = 0;             // 0: nothing to do here.
    const std::uint8_t* actions = nullptr;  // None: to clean up is all.
  };

  /// The table of the function that `context` is in.
  explicit UnwindTable(_Unwind_Context* context) : context_(context) {
    position_ = reinterpret_cast<const std::uint8_t*>(_Unwind_GetLanguageSpecificData(context));
  }

  LandingPad landingPad() {
    if (!position_) return {};
    const auto start = static_cast<std::uintptr_t>(_Unwind_GetRegionStart(context_));
    int isBeforeInstruction = 0;
    auto instruction = static_cast<std::uintptr_t>(_Unwind_GetIPInfo(context_, &isBeforeInstruction));
    if (!isBeforeInstruction) --instruction;  // The call, not what comes after it.

    std::uintptr_t padStart = start;
    if (const std::uint8_t encoding = readByte(); encoding != kOmitted) padStart = readEncoded(encoding);
    typeEncoding_ = readByte();
    if (typeEncoding_ != kOmitted) {
      const std::uintptr_t distance = readUnsigned();
      types_ = position_ + distance;
    }
    const std::uint8_t encoding = readByte();
    const std::uintptr_t length = readUnsigned();
    const std::uint8_t* actions = position_ + length;
    while (position_ < actions) {
      const std::uintptr_t from = start + readEncoded(encoding);
      const std::uintptr_t size = readEncoded(encoding);
      const std::uintptr_t pad = readEncoded(encoding);
      const std::uintptr_t action = readUnsigned();
      if (instruction < from) return {};
      if (instruction >= from + size) continue;
      if (!pad) return {};
      return {padStart + pad, action ? actions + action - 1 : nullptr};
    }
    return {};
  }

  /// Calls `visit(filter, type)` for each condition: filter 0 is to clean up, a positive one is a handler for what
  /// `type` describes, NULL for all. Until it answers true.
  template <typename Visit>
  void visitActions(const LandingPad& pad, const Visit& visit) {
    position_ = pad.actions;
    while (position_) {
      const std::intptr_t filter = readSigned();
      const std::uint8_t* here = position_;
      const std::intptr_t next = readSigned();
      if (visit(filter, filter > 0 ? type(filter) : nullptr)) return;
      position_ = next ? here + next : nullptr;
    }
  }

 private:
  static constexpr std::uint8_t kOmitted = 0xff;

  const void* type(std::intptr_t filter) {
    const std::uint8_t* saved = position_;
    position_ = types_ - filter * static_cast<std::intptr_t>(sizeOf(typeEncoding_));
    const std::uintptr_t value = readEncoded(typeEncoding_);
    position_ = saved;
    return reinterpret_cast<const void*>(value);
  }

  static std::size_t sizeOf(std::uint8_t encoding) {
    switch (encoding & 0x07) {
      case 0x02: return 2;
      case 0x03: return 4;
      case 0x04: return 8;
      default: return sizeof(void*);
    }
  }

  std::uint8_t readByte() { return *position_++; }

  std::uintptr_t readUnsigned() {
    std::uintptr_t value = 0;
    for (unsigned shift = 0;; shift += 7) {
      const std::uint8_t byte = readByte();
      value |= static_cast<std::uintptr_t>(byte & 0x7f) << shift;
      if (!(byte & 0x80)) return value;
    }
  }

  std::intptr_t readSigned() {
    std::uintptr_t value = 0;
    unsigned shift = 0;
    std::uint8_t byte = 0;
    do {
      byte = readByte();
      value |= static_cast<std::uintptr_t>(byte & 0x7f) << shift;
      shift += 7;
    } while (byte & 0x80);
    if ((byte & 0x40) && shift < 8 * sizeof value) value |= ~std::uintptr_t{0} << shift;
    return static_cast<std::intptr_t>(value);
  }

  template <typename Value>
  std::uintptr_t read() {
    Value value;
    std::memcpy(&value, position_, sizeof value);
    position_ += sizeof value;
    return static_cast<std::uintptr_t>(value);
  }

  /// A value in one of the encodings for pointers: a format, what it is relative to, whether it is the place of it.
  std::uintptr_t readEncoded(std::uint8_t encoding) {
    const auto here = reinterpret_cast<std::uintptr_t>(position_);
    std::uintptr_t value = 0;
    switch (encoding & 0x0f) {
      case 0x01: value = readUnsigned(); break;
      case 0x02: value = read<std::uint16_t>(); break;
      case 0x03: value = read<std::uint32_t>(); break;
      case 0x09: value = static_cast<std::uintptr_t>(readSigned()); break;
      case 0x0a: value = read<std::int16_t>(); break;
      case 0x0b: value = read<std::int32_t>(); break;
      default: value = read<std::uintptr_t>(); break;
    }
    if (!value) return 0;
    if ((encoding & 0x70) == 0x10) value += here;
    if (encoding & 0x80) std::memcpy(&value, reinterpret_cast<const void*>(value), sizeof value);
    return value;
  }

  _Unwind_Context* context_;
  const std::uint8_t* position_;
  const std::uint8_t* types_ = nullptr;
  std::uint8_t typeEncoding_ = kOmitted;
};

}  // namespace sim
