#include "IvarOffsets.hpp"

#include <dlfcn.h>
#include <link.h>
#include <objc/runtime.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace sim {
namespace {

constexpr std::string_view kPrefix = "__objc_ivar_offset_value_";  // Then the class, a point, and the variable.

/// The symbols that a file exports, as the loader has them in memory.
struct Symbols {
  const ElfW(Sym) *all = nullptr;
  const char *names = nullptr;
  std::uint32_t count = 0;
};

/// The table that finds symbols by name has no count: it is one more than the last symbol of the last chain.
std::uint32_t countOf(const std::uint32_t *table) {
  const std::uint32_t bucketCount = table[0], first = table[1], filterWords = table[2];
  const std::uint32_t *buckets = table + 4 + filterWords * (sizeof(ElfW(Addr)) / sizeof(std::uint32_t));
  const std::uint32_t *chains = buckets + bucketCount;
  const std::uint32_t last = *std::max_element(buckets, buckets + bucketCount);
  if (last < first) return first;
  std::uint32_t index = last;
  while (!(chains[index - first] & 1)) ++index;
  return index + 1;
}

Symbols symbolsOf(const link_map &map) {
  Symbols symbols;
  for (const ElfW(Dyn) *entry = map.l_ld; entry->d_tag != DT_NULL; ++entry) {
    const auto *place = reinterpret_cast<const void *>(entry->d_un.d_ptr);
    if (entry->d_tag == DT_SYMTAB) symbols.all = static_cast<const ElfW(Sym) *>(place);
    if (entry->d_tag == DT_STRTAB) symbols.names = static_cast<const char *>(place);
    if (entry->d_tag == DT_GNU_HASH) symbols.count = countOf(static_cast<const std::uint32_t *>(place));
  }
  return symbols;
}

}  // namespace

void fillIvarOffsets(const void *address) {
  dl_find_object file{};
  if (_dl_find_object(const_cast<void *>(address), &file) != 0) return;
  const Symbols symbols = symbolsOf(*file.dlfo_link_map);
  for (std::uint32_t index = 0; index < symbols.count; ++index) {
    const ElfW(Sym) &symbol = symbols.all[index];
    const std::string_view name = symbols.names + symbol.st_name;
    if (symbol.st_shndx == SHN_UNDEF || name.substr(0, kPrefix.size()) != kPrefix) continue;
    const std::string_view rest = name.substr(kPrefix.size());
    const auto point = rest.find('.');
    if (point == std::string_view::npos) continue;
    Class owner = objc_lookUpClass(std::string(rest.substr(0, point)).c_str());
    const auto *place = reinterpret_cast<const char *>(owner);
    if (!owner || (place >= file.dlfo_map_start && place < file.dlfo_map_end)) continue;
    Ivar variable = class_getInstanceVariable(owner, rest.substr(point + 1).data());
    if (!variable) continue;
    *reinterpret_cast<int *>(file.dlfo_link_map->l_addr + symbol.st_value) = static_cast<int>(ivar_getOffset(variable));
  }
}

}  // namespace sim
