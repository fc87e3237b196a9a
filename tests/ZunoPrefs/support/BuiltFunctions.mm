// The bundle's plain C++ functions, for tests that call them: each is the one in the built bundle, so that these tests
// try the code that is installed and not a second compile of its source.
#include "ZunoPrefs/support/BuiltBundle.h"
#include "cells/PackageStatus.hpp"
#include "core/FileState.hpp"
#include "core/PropertyListScan.hpp"
#include "core/PropertyListScanFile.hpp"
#include "lists/ToneKernel.hpp"
#include "lists/ToneKernelVariants.hpp"
#include "theme/ColourText.hpp"
#include "theme/Theme.hpp"

namespace {

template <typename Function>
Function *built(const char *symbol) {
  return reinterpret_cast<Function *>(testing_support::builtSymbol(symbol));
}

}  // namespace

namespace zuno {

std::optional<std::string_view> statusField(std::string_view record, std::string_view name) noexcept {
  static auto *const function =
      built<decltype(statusField)>("_ZN4zuno11statusFieldESt17basic_string_viewIcSt11char_traitsIcEES3_");
  return function(record, name);
}

bool showsChangesAfter(const FileState &state, std::chrono::system_clock::time_point time) noexcept {
  static auto *const function =
      built<decltype(showsChangesAfter)>("_ZN4zuno17showsChangesAfterERKNS_9FileStateENSt6chrono10time_pointINS3_3_"
                                         "V212system_clockENS3_8durationIlSt5ratioILl1ELl1000000000EEEEEE");
  return function(state, time);
}

PropertyListScan scanPropertyList(std::span<const std::byte> document, std::string_view key) noexcept {
  static auto *const function = built<decltype(scanPropertyList)>(
      "_ZN4zuno16scanPropertyListESt4spanIKSt4byteLm18446744073709551615EESt17basic_string_viewIcSt11char_traitsIcEE");
  return function(document, key);
}

void scanPropertyListKeys(std::span<const std::byte> document, std::span<const std::string_view> keys,
                          std::span<PropertyListScan> results) noexcept {
  static auto *const function = built<decltype(scanPropertyListKeys)>(
      "_ZN4zuno20scanPropertyListKeysESt4spanIKSt4byteLm18446744073709551615EES0_IKSt17basic_string_viewIcSt11char_"
      "traitsIcEELm18446744073709551615EES0_INS_16PropertyListScanELm18446744073709551615EE");
  function(document, keys, results);
}

std::int32_t countDarkGroups(std::span<const std::uint8_t> bytes) noexcept {
  static auto *const function =
      built<decltype(countDarkGroups)>("_ZN4zuno15countDarkGroupsESt4spanIKhLm18446744073709551615EE");
  return function(bytes);
}

std::span<const detail::ToneVariant> detail::toneVariants() noexcept {
  static auto *const function = built<decltype(toneVariants)>("_ZN4zuno6detail12toneVariantsEv");
  return function();
}

std::optional<Colour> parseColour(std::string_view text) {
  static auto *const function =
      built<decltype(parseColour)>("_ZN4zuno11parseColourESt17basic_string_viewIcSt11char_traitsIcEE");
  return function(text);
}

std::string colourText(const Colour &colour) {
  static auto *const function = built<decltype(colourText)>("_ZN4zuno10colourTextB5cxx11ERKNS_6ColourE");
  return function(colour);
}

Theme themeFrom(const ThemeReader &read) {
  static auto *const function = built<decltype(themeFrom)>("_ZN4zuno9themeFromERKSt8functionIFSt7variantIJSt9monostated"
                                                           "NSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEEEES"
                                                           "t17basic_string_viewIcS6_EEE");
  return function(read);
}

std::vector<std::string_view> themeKeys() {
  static auto *const function = built<decltype(themeKeys)>("_ZN4zuno9themeKeysEv");
  return function();
}

Look lookOf(const Theme &theme) {
  static auto *const function = built<decltype(lookOf)>("_ZN4zuno6lookOfERKNS_5ThemeE");
  return function(theme);
}

}  // namespace zuno

// A constructor and a destructor have no name in C++ that could be called, so these stand in under the linker's names.
#define FILE_BYTES_MAKE "_ZN4zuno9FileBytesC1EPKc"
#define FILE_BYTES_END "_ZN4zuno9FileBytesD1Ev"
void makeFileBytes(zuno::FileBytes *file, const char *path) asm(FILE_BYTES_MAKE);
void endFileBytes(zuno::FileBytes *file) asm(FILE_BYTES_END);

void makeFileBytes(zuno::FileBytes *file, const char *path) {
  static auto *const function = built<decltype(makeFileBytes)>(FILE_BYTES_MAKE);
  function(file, path);
}

void endFileBytes(zuno::FileBytes *file) {
  static auto *const function = built<decltype(endFileBytes)>(FILE_BYTES_END);
  function(file);
}
