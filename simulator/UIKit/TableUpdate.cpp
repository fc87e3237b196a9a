#include "TableUpdate.hpp"

#include <numeric>

namespace sim {

namespace {

/// What happens to a section or row of the former table.
enum class Change : unsigned char { none, deleted, reloaded, moved };

std::string name(const char* what, long index) { return std::string(what) + " " + std::to_string(index); }
std::string name(RowIndex index) { return name("row", index.row) + " of " + name("section", index.section); }

bool inRange(long index, std::size_t count) { return index >= 0 && static_cast<std::size_t>(index) < count; }

/// Works through one update. The first contradiction ends the work and stays in `error`.
class Resolution final {
 public:
  Resolution(const std::vector<long>& before, const std::vector<long>& after) : before_(before), after_(after) {
    sectionChanges_.resize(before.size());
    sectionTaken_.resize(after.size());
    rowChanges_.resize(before.size());
    rowTaken_.resize(after.size());
    for (std::size_t section = 0; section < before.size(); ++section) rowChanges_[section].resize(before[section]);
    for (std::size_t section = 0; section < after.size(); ++section) rowTaken_[section].resize(after[section]);
    outcome.sections.resize(before.size());
    outcome.rows.resize(before.size());
    for (std::size_t section = 0; section < before.size(); ++section) outcome.rows[section].resize(before[section]);
    section_ = std::vector<std::optional<long>>(before.size());
  }

  void changeSection(long section, Change change) {
    if (failed()) return;
    if (!inRange(section, before_.size())) {
      fail(name("section", section) + " was changed, but there were only " + std::to_string(before_.size()) +
           " sections before the update");
    } else if (sectionChanges_[section] != Change::none) {
      fail(name("section", section) + " was changed twice");
    } else {
      sectionChanges_[section] = change;
    }
  }

  void takeSection(long section) {
    if (failed()) return;
    if (!inRange(section, after_.size())) {
      fail(name("section", section) + " was inserted, but there are only " + std::to_string(after_.size()) +
           " sections after the update");
    } else if (sectionTaken_[section]) {
      fail(name("section", section) + " was inserted twice");
    } else {
      sectionTaken_[section] = true;
    }
  }

  void moveSection(long from, long to) {
    changeSection(from, Change::moved);
    takeSection(to);
    if (!failed()) section_[from] = to;
  }

  void checkSectionCount(std::size_t deleted, std::size_t inserted) {
    if (failed() || before_.size() - deleted + inserted == after_.size()) return;
    fail("invalid number of sections: " + std::to_string(after_.size()) + " after the update, " +
         std::to_string(before_.size()) + " before it, " + std::to_string(inserted) + " inserted and " +
         std::to_string(deleted) + " deleted");
  }

  /// The sections that stay fill, in order, the places that no inserted or moved section takes.
  void placeSections() {
    if (failed()) return;
    std::size_t place = 0;
    for (std::size_t section = 0; section < before_.size(); ++section) {
      const Change change = sectionChanges_[section];
      if (change == Change::none || change == Change::reloaded) {
        while (sectionTaken_[place]) ++place;
        section_[section] = static_cast<long>(place++);
      }
      if (change != Change::reloaded) outcome.sections[section] = section_[section];
    }
  }

  void changeRow(RowIndex index, Change change) {
    if (failed()) return;
    if (!inRange(index.section, before_.size()) || !inRange(index.row, before_[index.section])) {
      fail(name(index) + " was changed, which was not there before the update");
    } else if (rowChanges_[index.section][index.row] != Change::none) {
      fail(name(index) + " was changed twice");
    } else {
      rowChanges_[index.section][index.row] = change;
    }
  }

  void takeRow(RowIndex index) {
    if (failed()) return;
    if (!inRange(index.section, after_.size()) || !inRange(index.row, after_[index.section])) {
      fail(name(index) + " was inserted, which is not there after the update");
    } else if (rowTaken_[index.section][index.row]) {
      fail(name(index) + " was inserted twice");
    } else {
      rowTaken_[index.section][index.row] = true;
    }
  }

  void moveRow(RowIndex from, RowIndex to) {
    changeRow(from, Change::moved);
    takeRow(to);
    if (!failed()) outcome.rows[from.section][from.row].index = to;
  }

  /// The rows that stay fill, in order, the places that no inserted or moved row takes.
  void placeRows() {
    for (std::size_t section = 0; section < before_.size() && !failed(); ++section) {
      if (sectionChanges_[section] == Change::reloaded) {
        markReloaded(section);
      } else if (outcome.sections[section]) {
        placeRowsOf(static_cast<long>(section), *outcome.sections[section]);
      }
    }
  }

  TableUpdate::Outcome outcome;

 private:
  using Flags = std::vector<unsigned char>;

  void markReloaded(std::size_t section) {
    for (std::size_t row = 0; row < outcome.rows[section].size(); ++row) {
      const Change change = rowChanges_[section][row];
      outcome.rows[section][row].reloaded = change == Change::none || change == Change::reloaded;
    }
  }

  void placeRowsOf(long from, long to) {
    const auto& changes = rowChanges_[from];
    const Flags& taken = rowTaken_[to];
    long leaving = 0;
    for (const Change change : changes) leaving += change == Change::deleted || change == Change::moved;
    const long arriving = std::accumulate(taken.begin(), taken.end(), 0L);
    if (before_[from] - leaving + arriving != after_[to]) {
      fail("invalid number of rows in " + name("section", to) + ": " + std::to_string(after_[to]) +
           " after the update, " + std::to_string(before_[from]) + " before it, " + std::to_string(arriving) +
           " inserted or moved in and " + std::to_string(leaving) + " deleted or moved out");
      return;
    }
    long place = 0;
    for (long row = 0; row < before_[from]; ++row) {
      TableUpdate::Fate& fate = outcome.rows[from][row];
      if (changes[row] == Change::deleted || changes[row] == Change::moved) continue;
      while (taken[place]) ++place;
      fate = {RowIndex{to, place++}, changes[row] == Change::reloaded};
    }
  }

  bool failed() const { return !outcome.error.empty(); }
  void fail(std::string error) { outcome.error = std::move(error); }

  const std::vector<long>& before_;
  const std::vector<long>& after_;
  std::vector<Change> sectionChanges_;
  std::vector<std::optional<long>> section_;  // The place of each former section, the reloaded ones too.
  Flags sectionTaken_;
  std::vector<std::vector<Change>> rowChanges_;
  std::vector<Flags> rowTaken_;
};

}  // namespace

TableUpdate::Outcome TableUpdate::resolve(const std::vector<long>& before, const std::vector<long>& after) const {
  Resolution resolution(before, after);
  for (long section : deletedSections_) resolution.changeSection(section, Change::deleted);
  for (long section : reloadedSections_) resolution.changeSection(section, Change::reloaded);
  for (long section : insertedSections_) resolution.takeSection(section);
  for (const auto& [from, to] : movedSections_) resolution.moveSection(from, to);
  resolution.checkSectionCount(deletedSections_.size(), insertedSections_.size());
  resolution.placeSections();

  for (RowIndex index : deletedRows_) resolution.changeRow(index, Change::deleted);
  for (RowIndex index : reloadedRows_) resolution.changeRow(index, Change::reloaded);
  for (RowIndex index : insertedRows_) resolution.takeRow(index);
  for (const auto& [from, to] : movedRows_) resolution.moveRow(from, to);
  resolution.placeRows();
  return std::move(resolution.outcome);
}

}  // namespace sim
