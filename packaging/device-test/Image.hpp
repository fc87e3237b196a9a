// A Mach-O slice for arm64e in memory, as the dynamic linker of a device leaves it.
//
// Sources: <mach-o/loader.h> and <mach-o/fixup-chains.h>, LLVM's BinaryFormat/MachO.h, and the dynamic linker's
// published code for what the fields of a chain mean.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "PointerAuthentication.hpp"

namespace device_test {

/// Ends the process with status 1 and this sentence.
[[noreturn]] void fail(const std::string& sentence);
/// The C++ library here has headers only, so no std::to_string.
std::string decimal(std::int64_t number);

/// One place of the slice that holds a pointer.
struct Fixup {
  std::size_t offset = 0;             ///< From the start of the image.
  std::optional<Schema> schema;       ///< How the pointer is signed; a plain pointer has none.
  std::optional<std::string> symbol;  ///< What it is bound to; else `target` lies in the image.
  std::uint64_t target = 0;           ///< Offset from the start of the image, or what is added to the symbol.
  std::uint8_t highByte = 0;
};

class Image final {
 public:
  /// The address of an imported symbol, named as in C with an underscore before it.
  using Imports = std::function<std::uint64_t(const std::string& symbol)>;

  /// Reads the slice in `file`, which need not outlive the call. Ends the process for what is no such slice.
  explicit Image(std::span<const std::uint8_t> file);
  ~Image();
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;

  const std::vector<Fixup>& fixups() const { return fixups_; }
  std::vector<Fixup>& fixups() { return fixups_; }

  /// Writes every pointer, signed where its schema says so, and gives the segments their protection. Once.
  void link(const Imports& imports);

  /// The address of an exported symbol. Ends the process when there is none.
  std::uint64_t exported(std::string_view symbol) const;
  /// The contents of a section; empty when there is none.
  std::span<std::uint8_t> section(std::string_view segment, std::string_view name) const;
  std::uint8_t* at(std::size_t offset) const { return memory_ + offset; }
  bool contains(std::uint64_t address) const;

 private:
  struct Segment {
    std::uint64_t address, size;
    int protection;
  };
  struct Section {
    std::string segment, name;
    std::uint64_t address, size;
  };

  void readCommands(std::span<const std::uint8_t> file);
  void readChains(std::span<const std::uint8_t> chains);

  std::uint8_t* memory_ = nullptr;
  std::size_t size_ = 0;
  std::vector<Segment> segments_;
  std::vector<Section> sections_;
  std::vector<std::uint8_t> exports_;
  std::vector<Fixup> fixups_;
};

}  // namespace device_test
