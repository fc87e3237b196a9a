// Property lists for the tests of the scan: random ones, damaged ones, and a copy that ends where readable memory ends.
#pragma once

#include <cstddef>
#include <ostream>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/PropertyListScan.hpp"

namespace zuno {

/// Same outcome, and the same value of the same type; it does not matter whether a text is lent or decoded.
bool operator==(const PropertyListScan& a, const PropertyListScan& b);
/// For the messages of failed tests.
void PrintTo(const PropertyListScan& scan, std::ostream* out);

}  // namespace zuno

namespace testing_support {

using Random = std::mt19937;

inline constexpr std::string_view kXMLHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
inline constexpr std::string_view kXMLTail = "</plist>\n";

/// What a document holds for a key, as a test expects it.
struct Expectation {
  std::string key;
  zuno::PropertyListScan scan;
};

/// A sound property list and what a scan of it answers for some keys, absent ones among them.
struct Sample {
  std::string document;
  std::vector<Expectation> expectations;
};

/// A random dictionary, written in XML or in the binary format by libplist, or in XML spelled with variations.
Sample randomSample(Random& random);

/// `document` with one to four random changes.
std::string damaged(std::string document, Random& random);

zuno::PropertyListScan found(zuno::ScannedValue value);
zuno::PropertyListScan absent();
zuno::PropertyListScan undecided();

/// A copy of a document that ends where readable memory ends.
class GuardedCopy final {
 public:
  explicit GuardedCopy(std::string_view document);
  ~GuardedCopy();
  GuardedCopy(const GuardedCopy&) = delete;
  GuardedCopy& operator=(const GuardedCopy&) = delete;

  std::span<const std::byte> bytes() const { return std::as_bytes(std::span(content_, size_)); }
  /// The scan of the copy, whose texts may lie in it.
  zuno::PropertyListScan scan(std::string_view key) const;

 private:
  std::size_t size_;
  std::size_t mappedSize_;
  char* memory_;
  char* content_;
};

/// Scans a copy that ends where readable memory ends. The result holds its texts itself.
zuno::PropertyListScan scanGuarded(std::string_view document, std::string_view key);

/// The same for several keys in one pass.
std::vector<zuno::PropertyListScan> scanGuardedKeys(std::string_view document, std::vector<std::string_view> keys);

}  // namespace testing_support
