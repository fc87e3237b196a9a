// The processor's instructions that sign and authenticate pointers, by key.
//
// Source: Arm Architecture Reference Manual, FEAT_PAuth; clang's documentation of pointer authentication for what is
// signed how.
#pragma once

#include <cstdint>

namespace device_test {

enum class Key { kIA = 0, kIB = 1, kDA = 2, kDB = 3 };

/// How a pointer in memory is signed.
struct Schema {
  Key key = Key::kIA;
  std::uint16_t discriminator = 0;
  bool hasAddress = false;  ///< Whether the place of the pointer is a part of its signature.

  /// The modifier of the instructions for a pointer that lies at `place`.
  std::uint64_t modifier(const void* place) const {
    if (!hasAddress) return discriminator;
    return (reinterpret_cast<std::uint64_t>(place) & 0x0000'ffff'ffff'ffff) | std::uint64_t{discriminator} << 48;
  }
};

inline std::uint64_t sign(std::uint64_t pointer, Schema schema, const void* place) {
  const auto modifier = schema.modifier(place);
  switch (schema.key) {
    case Key::kIA: asm volatile("pacia %0, %1" : "+r"(pointer) : "r"(modifier)); break;
    case Key::kIB: asm volatile("pacib %0, %1" : "+r"(pointer) : "r"(modifier)); break;
    case Key::kDA: asm volatile("pacda %0, %1" : "+r"(pointer) : "r"(modifier)); break;
    case Key::kDB: asm volatile("pacdb %0, %1" : "+r"(pointer) : "r"(modifier)); break;
  }
  return pointer;
}

/// The pointer without its signature, which is not looked at.
inline std::uint64_t stripped(std::uint64_t pointer) {
  asm volatile("xpacd %0" : "+r"(pointer));
  return pointer;
}

/// The pointer without its signature; something else, which no memory lies at, when the signature is wrong. Seven bits
/// decide with the processor that qemu plays: one wrong signature in 128 passes.
inline std::uint64_t authenticated(std::uint64_t pointer, Schema schema, const void* place) {
  const auto modifier = schema.modifier(place);
  switch (schema.key) {
    case Key::kIA: asm volatile("autia %0, %1" : "+r"(pointer) : "r"(modifier)); break;
    case Key::kIB: asm volatile("autib %0, %1" : "+r"(pointer) : "r"(modifier)); break;
    case Key::kDA: asm volatile("autda %0, %1" : "+r"(pointer) : "r"(modifier)); break;
    case Key::kDB: asm volatile("autdb %0, %1" : "+r"(pointer) : "r"(modifier)); break;
  }
  return pointer;
}

}  // namespace device_test
