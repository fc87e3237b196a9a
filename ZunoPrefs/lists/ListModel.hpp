// What a list editor edits: the enabled and the disabled records, and how they move. Plain C++.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zuno {

/// The sections of a list editor's table.
constexpr long kEnabledSection = 0;
constexpr long kDisabledSection = 1;

/// A row of the table, as the table counts.
struct Place {
  long section = 0;
  long row = 0;
};

/// Where one editor differs from another.
struct ListPolicy {
  /// Loading enables at most this many records.
  std::size_t loadLimit = std::numeric_limits<std::size_t>::max();
  /// Whether a tap that enables a record evicts the last enabled one when the section is full. A drag always does.
  bool tapEvicts = false;
  /// Whether an evicted record goes to the end of the disabled section; otherwise it leaves both.
  bool evictedIsDisabled = false;
};

/// The two sections of an editor, each a list of records in display order, and its policy. Showing and saving them is
/// the caller's. Sections other than the two are like the disabled one to look at, and nothing moves in or out of them.
///
/// `Records` is a handle on a list that whoever else holds it sees change. One made by default is no list: false,
/// empty, and what is put into it is lost. It has the types Record, Identifier and IdentifierHash, and the operations
/// used here; a record may have no identifier.
template <typename Records>
class ListModel {
 public:
  using Record = typename Records::Record;
  using Identifier = typename Records::Identifier;

  /// The enabled section is full with this many records.
  static constexpr std::size_t kFull = 4;

  explicit ListModel(ListPolicy policy) : policy_(policy) {}

  Records enabled;
  Records disabled;

  const Records& list(long section) const { return section == kEnabledSection ? enabled : disabled; }

  /// Rows of a section: none while the enabled records are not known, else one, the placeholder, when it is empty.
  long rows(long section) const { return enabled ? std::max(static_cast<long>(list(section).size()), 1L) : 0; }

  /// Whether the rows of a section can be edited: all can but the placeholder of one of the two.
  bool canEdit(long section) const { return !isSection(section) || list(section).size() > 0; }

  /// Makes new lists of `all`. Enabled are those that `stored` names, in its order, as far as the policy allows; for
  /// each identifier every record that has it is taken, in the order of `all`. Disabled are the others, in the order of
  /// `all`, without those whose identifier is listed already. Linear in the number of records.
  void load(const std::vector<Identifier>& stored, const Records& all) {
    std::unordered_map<Identifier, std::vector<std::size_t>, typename Records::IdentifierHash> places;
    for (std::size_t row = 0; row < all.size(); ++row) {
      if (const auto identifier = all.identifierAt(row)) places[*identifier].push_back(row);
    }
    enabled = Records::made();
    for (const Identifier& identifier : stored) {
      const auto found = places.find(identifier);
      if (found == places.end()) continue;
      for (const std::size_t row : found->second) {
        if (enabled.size() < policy_.loadLimit) append(all.at(row), enabled);
      }
    }

    const auto identifiers = enabledIdentifiers();
    std::unordered_set<Identifier, typename Records::IdentifierHash> listed(identifiers.begin(), identifiers.end());
    disabled = Records::made();
    for (std::size_t row = 0; row < all.size(); ++row) {
      const auto identifier = all.identifierAt(row);
      if (!identifier || listed.insert(*identifier).second) append(all.at(row), disabled);
    }
  }

  /// What is stored: the identifiers of the enabled records, in order. Records without one are left out.
  std::vector<Identifier> enabledIdentifiers() const {
    std::vector<Identifier> identifiers;
    for (std::size_t row = 0; row < enabled.size(); ++row) {
      if (const auto identifier = enabled.identifierAt(row)) identifiers.push_back(*identifier);
    }
    return identifiers;
  }

  /// The record at `from` was dropped at `to` (counted without the record). Within a section it takes the new place.
  /// Into an empty section it is appended whatever the drop row. Into a full enabled section the last enabled record is
  /// evicted first, and the drop row is then cut to the section's end. A row that does not exist moves nothing.
  void drag(Place from, Place to) {
    if (!isSection(from.section) || !isSection(to.section) || !holds(from)) return;
    const Record record = section(from.section).take(static_cast<std::size_t>(from.row));
    Records& target = section(to.section);
    const bool crosses = from.section != to.section;
    if (crosses && target.size() == 0) return append(record, target);
    if (crosses && to.section == kEnabledSection) evictIfFull();
    target.insert(record, std::min(static_cast<std::size_t>(std::max(to.row, 0L)), target.size()));
  }

  /// The row at `place` was tapped: its record goes to the end of the other section. False, and nothing changed, when
  /// there is no such record in one of the two sections (a placeholder was tapped).
  bool tap(Place place) {
    if (!isSection(place.section)) return true;
    if (!holds(place)) return false;
    const Record record = section(place.section).take(static_cast<std::size_t>(place.row));
    const bool enables = place.section == kDisabledSection;
    if (enables && policy_.tapEvicts) evictIfFull();
    append(record, enables ? enabled : disabled);
    return true;
  }

 private:
  static bool isSection(long section) { return section == kEnabledSection || section == kDisabledSection; }
  static void append(const Record& record, Records& list) { list.insert(record, list.size()); }

  Records& section(long section) { return section == kEnabledSection ? enabled : disabled; }
  bool holds(Place place) const {
    return place.row >= 0 && static_cast<std::size_t>(place.row) < list(place.section).size();
  }

  void evictIfFull() {
    if (enabled.size() < kFull) return;
    const Record last = enabled.at(enabled.size() - 1);
    enabled.removeEqual(last);
    if (policy_.evictedIsDisabled) append(last, disabled);
  }

  ListPolicy policy_;
};

}  // namespace zuno
