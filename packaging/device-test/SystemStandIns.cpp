// The C library, and what the C++ library of a device exports of its templates: the headers are the same library's, and
// the flags of the build give its strings the same layout.
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "Image.hpp"
#include "Platform.hpp"

void* operator new(std::size_t size) { return std::malloc(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

template class std::basic_string<char>;

// The members of std::string that the headers name and the library's binary holds, by what follows the
// name of the class in theirs.
#define STRING_MEMBER(id, name) extern "C" void id() __asm__("_ZN" STRING name);
#define STRING "St3__112basic_stringIcNS_11char_traitsIcEENS_9allocatorIcEEE"
STRING_MEMBER(string_append, "6appendEPKcm")
STRING_MEMBER(string_push_back, "9push_backEc")
STRING_MEMBER(string_resize, "6resizeEmc")
STRING_MEMBER(string_assign, "aSERKS5_")
STRING_MEMBER(string_copy, "C1ERKS5_")

namespace device_test {
namespace {

std::uint64_t stackGuard = 0x0a0d'ff00'1234'5678;

void zeroBytes(void* memory, std::size_t size) { std::memset(memory, 0, size); }
[[noreturn]] void smashedStack() { fail("a function has overwritten its stack"); }

// The guard of a static variable: its first byte says whether the variable is made. One thread.
int acquireGuard(std::uint8_t* guard) { return *guard == 0; }
void releaseGuard(std::uint8_t* guard) { *guard = 1; }

template <typename Function>
std::uint64_t addressOf(Function* function) {
  return reinterpret_cast<std::uint64_t>(function);
}

}  // namespace

std::map<std::string, std::uint64_t> systemStandIns() {
  return {
      {"_memchr", addressOf(static_cast<const void* (*)(const void*, int, std::size_t)>(std::memchr))},
      {"_memcmp", addressOf(std::memcmp)},
      {"_memcpy", addressOf(std::memcpy)},
      {"_memmove", addressOf(std::memmove)},
      {"_memset", addressOf(std::memset)},
      {"_strlen", addressOf(std::strlen)},
      {"_bzero", addressOf(zeroBytes)},
      {"___stack_chk_guard", addressOf(&stackGuard)},
      {"___stack_chk_fail", addressOf(smashedStack)},
      {"___cxa_guard_acquire", addressOf(acquireGuard)},
      {"___cxa_guard_release", addressOf(releaseGuard)},
      {"__Znwm", addressOf(static_cast<void* (*)(std::size_t)>(operator new))},
      {"__ZdlPv", addressOf(static_cast<void (*)(void*) noexcept>(operator delete))},
      {"__ZdlPvm", addressOf(static_cast<void (*)(void*, std::size_t) noexcept>(operator delete))},
      {"__ZN" STRING "6appendEPKcm", addressOf(string_append)},
      {"__ZN" STRING "9push_backEc", addressOf(string_push_back)},
      {"__ZN" STRING "6resizeEmc", addressOf(string_resize)},
      {"__ZN" STRING "aSERKS5_", addressOf(string_assign)},
      {"__ZN" STRING "C1ERKS5_", addressOf(string_copy)},
  };
}

}  // namespace device_test
