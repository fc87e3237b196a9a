#include "device/PropertyListGuard.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace sim {
namespace {

constexpr std::uint32_t kDeepest = 512;
constexpr std::uint64_t kMostValues = 1'000'000;
constexpr std::uint64_t kMostBytes = 512u << 20;

bool isSafeXml(std::string_view text) {
  std::uint32_t depth = 0;
  for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
    const std::string_view tag = text.substr(at);
    if (tag.starts_with("<!--")) {
      at = text.find("-->", at);
    } else if (tag.starts_with("<array>") || tag.starts_with("<dict>")) {
      if (++depth > kDeepest) return false;
    } else if (tag.starts_with("</array") || tag.starts_with("</dict")) {
      depth -= depth > 0 ? 1 : 0;
    }
    if (at == std::string_view::npos) return true;
  }
  return true;
}

// What reading one object costs, everything that it refers to included.
struct Cost {
  enum class State : std::uint8_t { unknown, underWay, known } state = State::unknown;
  std::uint32_t levels = 1;
  std::uint64_t values = 1;
  std::uint64_t bytes = 0;
};

class BinaryGuard {
 public:
  explicit BinaryGuard(std::string_view file) : file_(file) {}

  bool isSafe() {
    constexpr std::size_t kTrailer = 32;
    if (file_.size() < 8 + kTrailer) return false;
    const std::size_t trailer = file_.size() - kTrailer;
    offsetSize_ = static_cast<unsigned char>(file_[trailer + 6]);
    referenceSize_ = static_cast<unsigned char>(file_[trailer + 7]);
    const auto count = number(trailer + 8, 8);
    const auto top = number(trailer + 16, 8);
    const auto table = number(trailer + 24, 8);
    if (!count || !top || !table || offsetSize_ == 0 || referenceSize_ == 0 || *count > file_.size() || *top >= *count)
      return false;
    table_ = *table;
    costs_.resize(*count);
    return walk(*top);
  }

 private:
  struct Collection {
    std::uint64_t references;  // Where they begin.
    std::uint64_t count;
  };
  struct Visit {
    std::uint64_t object;
    Collection collection;
    std::uint64_t next = 0;  // The next reference to look at.
  };

  // The big-endian number of `size` bytes at `at`; nothing beyond the file or above 64 bits.
  std::optional<std::uint64_t> number(std::uint64_t at, std::uint64_t size) const {
    if (size > 8 || at > file_.size() || size > file_.size() - at) return std::nullopt;
    std::uint64_t value = 0;
    for (std::uint64_t i = 0; i < size; ++i) value = value << 8 | static_cast<unsigned char>(file_[at + i]);
    return value;
  }

  // Reads an object's head: its own bytes go into its cost, its references into the result.
  std::optional<Collection> collection(std::uint64_t object) {
    const auto offset = object < costs_.size() ? number(table_ + object * offsetSize_, offsetSize_) : std::nullopt;
    const auto marker = offset ? number(*offset, 1) : std::nullopt;
    if (!marker) return std::nullopt;
    const std::uint64_t kind = *marker >> 4;
    std::uint64_t count = *marker & 15;
    std::uint64_t begin = *offset + 1;
    const bool isSized = kind == 0x4 || kind == 0x5 || kind == 0x6 || kind == 0x7;
    const bool isCollection = kind == 0xA || kind == 0xC || kind == 0xD;
    if (!isSized && !isCollection) return Collection{begin, 0};
    if (count == 15) {
      const auto size = number(begin, 1);
      const std::uint64_t width = size ? 1ull << (*size & 15) : 0;
      const auto length = size ? number(begin + 1, width) : std::nullopt;
      if (!length) return std::nullopt;
      count = *length;
      begin += 1 + width;
    }
    if (count > file_.size()) return std::nullopt;
    if (isSized) {
      costs_[object].bytes = count * (kind == 0x6 ? 3 : 1);  // UTF-16 becomes UTF-8.
      return Collection{begin, 0};
    }
    return Collection{begin, kind == 0xD ? 2 * count : count};
  }

  bool walk(std::uint64_t top) {
    std::vector<Visit> path;
    if (!enter(path, top)) return false;
    while (!path.empty()) {
      Visit& visit = path.back();
      Cost& cost = costs_[visit.object];
      if (visit.next == visit.collection.count) {
        cost.state = Cost::State::known;
        path.pop_back();
        continue;
      }
      const auto child = number(visit.collection.references + visit.next * referenceSize_, referenceSize_);
      if (!child || *child >= costs_.size()) return false;
      const Cost& childCost = costs_[*child];
      if (childCost.state != Cost::State::known) {
        // A reference to what is under way is a circle.
        if (childCost.state == Cost::State::underWay || path.size() >= kDeepest || !enter(path, *child)) return false;
        continue;
      }
      ++visit.next;
      cost.levels = std::max(cost.levels, childCost.levels + 1);
      cost.values += childCost.values;
      cost.bytes += childCost.bytes;
      if (cost.levels > kDeepest || cost.values > kMostValues || cost.bytes > kMostBytes) return false;
    }
    return true;
  }

  bool enter(std::vector<Visit>& path, std::uint64_t object) {
    const auto found = collection(object);
    if (!found) return false;
    costs_[object].state = Cost::State::underWay;
    path.push_back({object, *found});
    return true;
  }

  std::string_view file_;
  std::uint64_t offsetSize_ = 0;
  std::uint64_t referenceSize_ = 0;
  std::uint64_t table_ = 0;
  std::vector<Cost> costs_;
};

}  // namespace

bool isSafePropertyList(std::string_view bytes) {
  return bytes.starts_with("bplist") ? BinaryGuard(bytes).isSafe() : isSafeXml(bytes);
}

}  // namespace sim
