#import "core/PreferenceScan.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <variant>

#import "core/PropertyListScan.hpp"
#import "core/PropertyListScanFile.hpp"
#import "core/PropertyListObject.h"

namespace zuno {
namespace {

std::size_t sizeOfText(const ScannedValue &value) {
  if (const auto *lent = std::get_if<std::string_view>(&value)) return lent->size();
  const auto *decoded = std::get_if<std::string>(&value);
  return decoded ? decoded->size() : 0;
}

PreferenceScan::Entry entryOf(const PropertyListScan &scan) {
  using Kind = PreferenceScan::Entry::Kind;
  switch (scan.outcome) {
    case PropertyListScan::Outcome::kUndecided: return {};
    case PropertyListScan::Outcome::kAbsent: return {Kind::kAbsent, {}};
    case PropertyListScan::Outcome::kFound:
      if (sizeOfText(scan.value) > PreferenceScan::kLargestKept) return {Kind::kLarge, {}};
      id value = objectOf(scan.value);
      return value ? PreferenceScan::Entry{Kind::kFound, objcxx::share((NSObject *)value)} : PreferenceScan::Entry{};
  }
}

}  // namespace

void PreferenceScan::expect(const std::string &path, std::span<const std::string_view> keys) {
  if (path != path_) {
    path_ = path;
    keys_.clear();
    counts_ = false;
  }
  for (const std::string_view key : keys) {
    if (std::find(keys_.begin(), keys_.end(), key) != keys_.end()) continue;
    if (keys_.size() >= kMostKeys) keys_.clear();
    keys_.emplace_back(key);
    counts_ = false;
  }
}

const PreferenceScan::Entry &PreferenceScan::find(const std::string &path, std::string_view key) {
  expect(path, {&key, 1});
  if (!counts_ || fileState(path_.c_str()) != state_) pass();
  return entries_[static_cast<std::size_t>(std::find(keys_.begin(), keys_.end(), key) - keys_.begin())];
}

void PreferenceScan::pass() {
  const auto start = std::chrono::system_clock::now();
  const FileBytes file(path_.c_str());
  const std::vector<std::string_view> keys(keys_.begin(), keys_.end());
  std::vector<PropertyListScan> scans(keys.size());
  scanPropertyListKeys(file.bytes(), keys, scans);
  entries_.clear();
  std::transform(scans.begin(), scans.end(), std::back_inserter(entries_), entryOf);
  state_ = file.state();
  counts_ = showsChangesAfter(state_, start);
}

}  // namespace zuno
