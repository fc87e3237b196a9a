// A batch of changes to the rows of a table view. Plain C++.
#pragma once

#include "TableGeometry.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sim {

/// Collects the changes between the begin and the end of an update, and works out where each row went.
///
/// Deleted and reloaded rows and sections and the origins of moves are named by their place before the update, inserted
/// ones and the goals of moves by their place after it, in whatever order the changes were made.
class TableUpdate final {
 public:
  /// Where a row of the former table is now.
  struct Fate {
    std::optional<RowIndex> index;  // None: the row is gone, or if `reloaded`, its section is loaded again.
    bool reloaded = false;
  };

  struct Outcome {
    /// Empty when the counts fit the changes, else a sentence that says what does not.
    std::string error;
    /// For each former section its present place; none when it is gone or reloaded.
    std::vector<std::optional<long>> sections;
    /// For each former row.
    std::vector<std::vector<Fate>> rows;
  };

  void deleteSection(long section) { deletedSections_.push_back(section); }
  void insertSection(long section) { insertedSections_.push_back(section); }
  void reloadSection(long section) { reloadedSections_.push_back(section); }
  void moveSection(long from, long to) { movedSections_.emplace_back(from, to); }
  void deleteRow(RowIndex index) { deletedRows_.push_back(index); }
  void insertRow(RowIndex index) { insertedRows_.push_back(index); }
  void reloadRow(RowIndex index) { reloadedRows_.push_back(index); }
  void moveRow(RowIndex from, RowIndex to) { movedRows_.emplace_back(from, to); }

  /// `before` and `after` are the numbers of rows of all sections. Time and space are linear in the number of rows.
  Outcome resolve(const std::vector<long>& before, const std::vector<long>& after) const;

 private:
  std::vector<long> deletedSections_;
  std::vector<long> insertedSections_;
  std::vector<long> reloadedSections_;
  std::vector<std::pair<long, long>> movedSections_;
  std::vector<RowIndex> deletedRows_;
  std::vector<RowIndex> insertedRows_;
  std::vector<RowIndex> reloadedRows_;
  std::vector<std::pair<RowIndex, RowIndex>> movedRows_;
};

}  // namespace sim
