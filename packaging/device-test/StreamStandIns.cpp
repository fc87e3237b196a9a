// std::istringstream, as far as reading one number from it goes: the slice builds the object itself, out of virtual
// tables of the C++ library or its own, and calls the library and its virtual functions for the rest.
//
// Layouts: the Itanium C++ ABI, and libc++'s headers. What is signed how: clang's documentation of pointer
// authentication (entries of virtual tables: key IA, place and the name of the function; entries of a VTT: key DA).
#include <cstdlib>
#include <map>
#include <string>

#include "Image.hpp"
#include "Platform.hpp"
#include "PointerAuthentication.hpp"

namespace device_test {
namespace {

// Offsets in a std::istringstream of its parts, and in a std::ios of its fields.
constexpr std::uint64_t kBufferOffset = 16;
constexpr std::uint64_t kIosOffset = 120;

struct IosFields {
  const void* virtualTable;
  std::uint32_t flags;
  std::int64_t precision, width;
  std::uint32_t state, exceptions;
  void* buffer;
};
static_assert(offsetof(IosFields, buffer) == 40);

/// The start of a std::streambuf; all that it has to read lies between `next` and `end`.
struct BufferFields {
  const void* virtualTable;
  const void* locale;
  const char *begin, *next, *end;
};

/// A std::locale: returned through memory, as it has a destructor.
struct Locale {
  const void* facets = nullptr;
  Locale() = default;
  Locale(const Locale& other) : facets(other.facets) {}
  Locale& operator=(const Locale&) = default;
  ~Locale() {}
};

Locale classicLocale;
std::map<const void*, std::string> contents;  // Of the string buffers that the slice does not fill itself.

Locale* classic() { return &classicLocale; }
void copyLocale(Locale* to, const Locale* from) { new (to) Locale(*from); }
Locale* assignLocale(Locale* to, const Locale* from) { return &(*to = *from); }
Locale localeOf(const void*) { return {}; }
void nothing(void*) {}

void initialize(IosFields* ios, void* buffer) {
  ios->flags = 0x1002;  // Decimal, and skipping white space.
  ios->precision = 6;
  ios->width = 0;
  ios->state = buffer ? 0 : 1;
  ios->exceptions = 0;
  ios->buffer = buffer;
}

Locale imbueIos(void*, const Locale*) { return {}; }
void imbueBuffer(void*, const Locale*) {}
void makeBuffer(BufferFields* buffer) { buffer->begin = buffer->next = buffer->end = nullptr; }
void destroyBuffer(BufferFields* buffer) { contents.erase(buffer); }

void setText(BufferFields* buffer, const std::string& text) {
  const auto& own = contents[buffer] = text;
  buffer->begin = buffer->next = own.data();
  buffer->end = own.data() + own.size();
}

void* readNumber(char* stream, double* number) {
  const auto* buffer = reinterpret_cast<const BufferFields*>(stream + kBufferOffset);
  *number = std::strtod(std::string(buffer->next, buffer->end).c_str(), nullptr);  // The process has no locale.
  return stream;
}

template <typename Function>
std::uint64_t addressOf(Function* function) {
  return reinterpret_cast<std::uint64_t>(function);
}

// Tables as the C++ library has them; a zero is what nobody asks for.
std::uint64_t streamTable[10], streamPartTable[3], iosPartTable[3], bufferTable[5];
std::uint64_t parts[4];  // The VTT.

void buildTables() {
  // Before the address that an object points to: the offset of the virtual base or call, that to the top, the type.
  streamTable[0] = kIosOffset;
  streamTable[5] = streamTable[6] = -kIosOffset;
  streamPartTable[0] = kIosOffset;
  constexpr auto kImbue =
      __builtin_ptrauth_string_discriminator("_ZNSt3__115basic_streambufIcNS_11char_traitsIcEEE5imbueERKNS_6localeE");
  bufferTable[4] = sign(addressOf(imbueBuffer), {Key::kIA, kImbue, true}, &bufferTable[4]);
  const std::uint64_t* const tables[] = {streamTable + 3, streamPartTable + 3, iosPartTable + 3, streamTable + 8};
  for (int i = 0; i < 4; ++i) parts[i] = sign(addressOf(tables[i]), {Key::kDA, 0, false}, &parts[i]);
}

}  // namespace

std::map<std::string, std::uint64_t> streamStandIns() {
  contents.clear();
  buildTables();
  return {
      {"__ZTVNSt3__119basic_istringstreamIcNS_11char_traitsIcEENS_9allocatorIcEEEE", addressOf(streamTable)},
      {"__ZTTNSt3__119basic_istringstreamIcNS_11char_traitsIcEENS_9allocatorIcEEEE", addressOf(parts)},
      {"__ZTVNSt3__115basic_stringbufIcNS_11char_traitsIcEENS_9allocatorIcEEEE", addressOf(bufferTable)},
      {"__ZNSt3__18ios_base4initEPv", addressOf(initialize)},
      {"__ZNSt3__18ios_base5imbueERKNS_6localeE", addressOf(imbueIos)},
      {"__ZNKSt3__18ios_base6getlocEv", addressOf(localeOf)},
      {"__ZNSt3__16locale7classicEv", addressOf(classic)},
      {"__ZNSt3__16localeC1ERKS0_", addressOf(copyLocale)},
      {"__ZNSt3__16localeC1Ev", addressOf(nothing)},
      {"__ZNSt3__16localeD1Ev", addressOf(nothing)},
      {"__ZNSt3__16localeaSERKS0_", addressOf(assignLocale)},
      {"__ZNSt3__115basic_streambufIcNS_11char_traitsIcEEEC2Ev", addressOf(makeBuffer)},
      {"__ZNSt3__115basic_streambufIcNS_11char_traitsIcEEED2Ev", addressOf(destroyBuffer)},
      {"__ZNSt3__115basic_streambufIcNS_11char_traitsIcEEE5imbueERKNS_6localeE", addressOf(imbueBuffer)},
      {"__ZNSt3__115basic_stringbufIcNS_11char_traitsIcEENS_9allocatorIcEEE3strERKNS_12basic_stringIcS2_S4_EE",
       addressOf(setText)},
      {"__ZNSt3__113basic_istreamIcNS_11char_traitsIcEEErsERd", addressOf(readNumber)},
      {"__ZNSt3__113basic_istreamIcNS_11char_traitsIcEEED2Ev", addressOf(nothing)},
      {"__ZNSt3__19basic_iosIcNS_11char_traitsIcEEED2Ev", addressOf(nothing)},
  };
}

}  // namespace device_test
