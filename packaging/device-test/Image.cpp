#include "Image.hpp"

#include <sys/mman.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace device_test {
namespace {

constexpr std::uint32_t kMagic = 0xfeedfacf;
constexpr std::uint32_t kArm64 = 0x0100000c;
constexpr std::uint32_t kArm64e = 2;  // In the low byte of the kind of processor.
constexpr std::uint32_t kSegmentCommand = 0x19;
constexpr std::uint32_t kExportsCommand = 0x80000033;
constexpr std::uint32_t kChainsCommand = 0x80000034;
constexpr std::uint16_t kUserland24 = 12;  // DYLD_CHAINED_PTR_ARM64E_USERLAND24
constexpr std::size_t kStride = 8;
constexpr std::uint16_t kNoFixups = 0xffff;  // A page's start.
constexpr std::size_t kPage = 0x4000;

using Bytes = std::span<const std::uint8_t>;

template <typename Number>
Number number(Bytes bytes, std::size_t offset) {
  Number result;
  if (offset > bytes.size() || bytes.size() - offset < sizeof result) fail("the slice ends in the middle of a field");
  std::memcpy(&result, bytes.data() + offset, sizeof result);
  return result;
}

Bytes part(Bytes bytes, std::uint64_t offset, std::uint64_t size) {
  if (offset > bytes.size() || size > bytes.size() - offset) fail("the slice is shorter than its commands say");
  return bytes.subspan(offset, size);
}

std::string text(Bytes bytes, std::size_t offset, std::size_t longest) {
  const auto rest = part(bytes, offset, std::min(longest, bytes.size() - std::min(offset, bytes.size())));
  return std::string(rest.begin(), std::find(rest.begin(), rest.end(), 0));
}

/// The bits [low, low + count) of `word`.
constexpr std::uint64_t bits(std::uint64_t word, unsigned low, unsigned count) {
  return word >> low & ((std::uint64_t{1} << count) - 1);
}

std::uint64_t readUnsigned(Bytes bytes, std::size_t& at) {
  std::uint64_t value = 0;
  for (unsigned shift = 0; shift < 64; shift += 7) {
    const auto byte = number<std::uint8_t>(bytes, at++);
    value |= std::uint64_t{byte & 0x7fu} << shift;
    if (!(byte & 0x80)) break;
  }
  return value;
}

/// The names of the imports of a chained-fixups blob, by ordinal, with their addends.
std::vector<std::pair<std::string, std::int64_t>> importsIn(Bytes chains) {
  const auto at = number<std::uint32_t>(chains, 8), names = number<std::uint32_t>(chains, 12);
  const auto count = number<std::uint32_t>(chains, 16), format = number<std::uint32_t>(chains, 20);
  if (number<std::uint32_t>(chains, 24) != 0) fail("the names of the imports are compressed");
  std::vector<std::pair<std::string, std::int64_t>> imports;
  for (std::uint32_t i = 0; i < count; ++i) {
    switch (format) {
      case 1:
      case 2: {
        const auto size = format == 1 ? 4 : 8;
        const auto word = number<std::uint32_t>(chains, at + i * size);
        const auto addend = format == 1 ? 0 : number<std::int32_t>(chains, at + i * size + 4);
        imports.emplace_back(text(chains, names + bits(word, 9, 23), 4096), addend);
        break;
      }
      case 3: {
        const auto word = number<std::uint64_t>(chains, at + i * 16);
        const auto addend = number<std::int64_t>(chains, at + i * 16 + 8);
        imports.emplace_back(text(chains, names + bits(word, 32, 32), 4096), addend);
        break;
      }
      default: fail("the imports have an unknown format");
    }
  }
  return imports;
}

}  // namespace

void fail(const std::string& sentence) {
  std::fflush(stdout);
  std::fprintf(stderr, "device-test: %s\n", sentence.c_str());
  std::_Exit(1);
}

std::string decimal(std::int64_t number) {
  char text[32];
  std::snprintf(text, sizeof text, "%lld", static_cast<long long>(number));
  return text;
}

Image::Image(Bytes file) {
  if (number<std::uint32_t>(file, 0) != kMagic || number<std::uint32_t>(file, 4) != kArm64 ||
      (number<std::uint32_t>(file, 8) & 0xff) != kArm64e)
    fail("the file is no arm64e slice");
  readCommands(file);
}

Image::~Image() { munmap(memory_, size_); }

void Image::readCommands(Bytes file) {
  Bytes chains;
  struct Source {
    std::uint64_t address, offset, size;
  };
  std::vector<Source> sources;
  std::size_t at = 32;
  for (auto left = number<std::uint32_t>(file, 16); left > 0; --left) {
    const auto command = number<std::uint32_t>(file, at), length = number<std::uint32_t>(file, at + 4);
    if (command == kSegmentCommand) {
      const auto address = number<std::uint64_t>(file, at + 24), size = number<std::uint64_t>(file, at + 32);
      sources.push_back({address, number<std::uint64_t>(file, at + 40), number<std::uint64_t>(file, at + 48)});
      segments_.push_back({address, size, number<int>(file, at + 60)});
      for (std::uint32_t i = 0; i < number<std::uint32_t>(file, at + 64); ++i) {
        const auto section = at + 72 + 80 * i;
        sections_.push_back({text(file, section + 16, 16), text(file, section, 16),
                             number<std::uint64_t>(file, section + 32), number<std::uint64_t>(file, section + 40)});
      }
    } else if (command == kChainsCommand || command == kExportsCommand) {
      const auto blob = part(file, number<std::uint32_t>(file, at + 8), number<std::uint32_t>(file, at + 12));
      if (command == kChainsCommand) chains = blob;
      if (command == kExportsCommand) exports_.assign(blob.begin(), blob.end());
    }
    if (length < 8) fail("a load command has no length");
    at += length;
  }
  if (chains.empty()) fail("the slice has no chained fixups");
  if (segments_.empty() || segments_.front().address != 0) fail("the slice does not start at address 0");

  for (const auto& segment : segments_) size_ = std::max<std::size_t>(size_, segment.address + segment.size);
  void* mapped = mmap(nullptr, size_ + kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapped == MAP_FAILED) fail("no memory for the slice");
  // At the start of a page of the device, as the code takes addresses page by page.
  memory_ = reinterpret_cast<std::uint8_t*>((reinterpret_cast<std::uint64_t>(mapped) + kPage - 1) / kPage * kPage);
  for (const auto& [address, offset, size] : sources) {
    const auto content = part(file, offset, size);
    if (address + size > size_) fail("a segment is larger in the file than in memory");
    std::copy(content.begin(), content.end(), memory_ + address);
  }
  readChains(chains);
}

void Image::readChains(Bytes chains) {
  const auto imports = importsIn(chains);
  const auto starts = number<std::uint32_t>(chains, 4);
  const Bytes memory(memory_, size_);
  for (std::uint32_t i = 0; i < number<std::uint32_t>(chains, starts); ++i) {
    const auto offset = number<std::uint32_t>(chains, starts + 4 + 4 * i);
    if (offset == 0) continue;
    const auto segment = starts + offset;
    const auto pageSize = number<std::uint16_t>(chains, segment + 4);
    if (number<std::uint16_t>(chains, segment + 6) != kUserland24) fail("the chains have another pointer format");
    const auto start = number<std::uint64_t>(chains, segment + 8);
    for (std::uint16_t page = 0; page < number<std::uint16_t>(chains, segment + 20); ++page) {
      const auto first = number<std::uint16_t>(chains, segment + 22 + 2 * page);
      if (first == kNoFixups) continue;
      std::uint64_t next = 0;
      for (auto at = start + std::uint64_t{page} * pageSize + first;; at += next * kStride) {
        const auto word = number<std::uint64_t>(memory, at);
        const bool isSigned = bits(word, 63, 1), isBind = bits(word, 62, 1);
        next = bits(word, 51, 11);
        Fixup fixup;
        fixup.offset = at;
        if (isSigned) {
          fixup.schema = Schema{.key = static_cast<Key>(bits(word, 49, 2)),
                                .discriminator = static_cast<std::uint16_t>(bits(word, 32, 16)),
                                .hasAddress = bits(word, 48, 1) != 0};
        }
        if (isBind) {
          const auto ordinal = bits(word, 0, 24);
          if (ordinal >= imports.size()) fail("a chain names an import that is not there");
          // 19 bits with a sign; signed pointers have no addend of their own.
          const auto addend = isSigned ? 0 : static_cast<std::int64_t>(bits(word, 32, 19) << 45) >> 45;
          fixup.symbol = imports[ordinal].first;
          fixup.target = static_cast<std::uint64_t>(imports[ordinal].second + addend);
        } else if (isSigned) {
          fixup.target = bits(word, 0, 32);
        } else {
          fixup.target = bits(word, 0, 43);
          fixup.highByte = static_cast<std::uint8_t>(bits(word, 43, 8));
        }
        fixups_.push_back(std::move(fixup));
        if (next == 0) break;
      }
    }
  }
}

void Image::link(const Imports& imports) {
  for (const auto& fixup : fixups_) {
    std::uint8_t* const place = at(fixup.offset);
    auto value = fixup.target + (fixup.symbol ? imports(*fixup.symbol) : reinterpret_cast<std::uint64_t>(memory_));
    value |= std::uint64_t{fixup.highByte} << 56;
    if (fixup.schema) value = sign(value, *fixup.schema, place);
    std::memcpy(place, &value, sizeof value);
  }
  __builtin___clear_cache(reinterpret_cast<char*>(memory_), reinterpret_cast<char*>(memory_ + size_));
  for (const auto& segment : segments_) {
    if (segment.size > 0 && mprotect(at(segment.address), segment.size, segment.protection) != 0)
      fail("a segment cannot be protected");
  }
}

std::uint64_t Image::exported(std::string_view symbol) const {
  const Bytes trie(exports_);
  std::size_t node = 0;
  for (auto rest = symbol;;) {
    auto at = node;
    const auto size = readUnsigned(trie, at);
    if (rest.empty()) {
      if (size == 0) break;
      readUnsigned(trie, at);  // Flags.
      return reinterpret_cast<std::uint64_t>(memory_) + readUnsigned(trie, at);
    }
    at += size;
    bool found = false;
    for (auto children = number<std::uint8_t>(trie, at++); children > 0 && !found; --children) {
      const auto label = text(trie, at, trie.size());
      at += label.size() + 1;
      const auto child = readUnsigned(trie, at);
      if (!rest.starts_with(label)) continue;
      rest.remove_prefix(label.size());
      node = child;
      found = true;
    }
    if (!found) break;
  }
  fail("the slice does not export " + std::string(symbol));
}

std::span<std::uint8_t> Image::section(std::string_view segment, std::string_view name) const {
  for (const auto& section : sections_) {
    if (section.segment == segment && section.name == name) return {memory_ + section.address, section.size};
  }
  return {};
}

bool Image::contains(std::uint64_t address) const {
  const auto start = reinterpret_cast<std::uint64_t>(memory_);
  return address >= start && address < start + size_;
}

}  // namespace device_test
