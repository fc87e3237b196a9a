// Scans of random and of damaged property lists, compared with libplist, which parses them whole.
#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "ZunoPrefs/core/PropertyListScanSamples.hpp"

namespace {

using namespace testing_support;
using Outcome = zuno::PropertyListScan::Outcome;

class Parsed final {
 public:
  explicit Parsed(const std::string& document) {
    plist_t root = nullptr;
    const auto size = static_cast<std::uint32_t>(document.size());
    if (plist_is_binary(document.data(), size)) plist_from_bin(document.data(), size, &root);
    else plist_from_xml(document.data(), size, &root);
    root_.reset(root);
  }

  bool isDictionary() const { return root_ && plist_get_node_type(root_.get()) == PLIST_DICT; }

  /// Whether the dictionary's entry for `key` is what `scan` says.
  bool agrees(const std::string& key, const zuno::PropertyListScan& scan) const {
    if (!isDictionary()) return false;
    plist_t item = plist_dict_get_item(root_.get(), key.c_str());
    if (scan.outcome == Outcome::kAbsent) return !item;
    return item && std::visit([item](const auto& value) { return holds(item, value); }, scan.value);
  }

 private:
  static bool holds(plist_t item, bool value) {
    std::uint8_t truth = 0;
    plist_get_bool_val(item, &truth);
    return plist_get_node_type(item) == PLIST_BOOLEAN && (truth != 0) == value;
  }
  static bool holds(plist_t item, std::uint64_t value) {
    std::uint64_t number = 0;
    plist_get_uint_val(item, &number);
    return plist_get_node_type(item) == PLIST_UINT && number == value;
  }
  static bool holds(plist_t item, std::int64_t value) { return holds(item, static_cast<std::uint64_t>(value)); }
  static bool holds(plist_t item, double value) {
    double number = 0;
    plist_get_real_val(item, &number);
    return plist_get_node_type(item) == PLIST_REAL && (number == value || (number != number && value != value));
  }
  static bool holds(plist_t item, float value) { return holds(item, static_cast<double>(value)); }
  static bool holds(plist_t item, std::string_view value) {
    return plist_get_node_type(item) == PLIST_STRING && plist_get_string_ptr(item, nullptr) == value;
  }

  std::unique_ptr<void, decltype(&plist_free)> root_{nullptr, plist_free};
};

TEST(PropertyListScanDifferentialTest, KnowsEveryValueOfRandomDocuments) {
  Random random(20240229);
  for (int i = 0; i < 4000; ++i) {
    const auto sample = randomSample(random);
    const Parsed parsed(sample.document);
    const GuardedCopy copy(sample.document);
    for (const auto& [key, expected] : sample.expectations) {
      const auto scan = copy.scan(key);
      ASSERT_EQ(scan, expected) << key << " in document " << i << "\n" << sample.document;
      if (scan.outcome != Outcome::kUndecided) {
        ASSERT_TRUE(parsed.agrees(key, scan)) << key << " in document " << i << "\n" << sample.document;
      }
    }
  }
}

TEST(PropertyListScanDifferentialTest, NeverContradictsAFullParseOfDamagedDocuments) {
  Random random(1);
  int decided = 0, malformed = 0;
  for (int i = 0; i < 40'000; ++i) {
    const auto sample = randomSample(random);
    const auto document = damaged(sample.document, random);
    const Parsed parsed(document);
    const GuardedCopy copy(document);
    malformed += !parsed.isDictionary();
    for (const auto& [key, expected] : sample.expectations) {
      const auto scan = copy.scan(key);
      if (scan.outcome == Outcome::kUndecided) continue;
      ++decided;
      ASSERT_TRUE(parsed.agrees(key, scan))
          << key << " in document " << i << ": " << ::testing::PrintToString(scan) << "\n"
          << document;
    }
  }
  // The changes must leave both kinds, or the comparison would show nothing.
  EXPECT_GT(decided, 20'000);
  EXPECT_GT(malformed, 10'000);
}

}  // namespace
