// Which row of a table view is which, whatever becomes of them. Plain C++.
#pragma once

#include "TableGeometry.hpp"
#include "TableUpdate.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sim {

/// What a row is known again by when its table view has been loaded anew, the surest first. What is empty is not known.
struct RowTraits {
  std::shared_ptr<const void>
      model;          ///< What the row stands for, by its address; kept, so that no address is met twice.
  std::string shown;  ///< The name of that, or else all that the row shows.
  std::string label;  ///< What it still shows when the rest has changed. Tells only unlike rows apart.
};

/// The numbers of the rows of a table view. A row has its number for as long as it is there: wherever an update puts
/// it, when it is reloaded, and when everything is loaded anew and a row with its traits is among the new ones. Rows
/// that are alike are told apart by their order. The number of a row that is gone is never given to another.
///
/// New rows, and all rows after a reload, have no number until `settle`, so that what is known of them can be said
/// before. Everything takes time linear in the number of rows.
class RowNumbers final {
 public:
  /// Everything is loaded anew, `counts[s]` rows in section s.
  void reload(const std::vector<long>& counts);
  /// The rows go where `outcome`, which came without an error, says.
  void follow(const TableUpdate::Outcome& outcome, const std::vector<long>& counts);
  /// What was known of the row goes, unless `traits` have the same model and nothing that it shows.
  void know(RowIndex index, RowTraits traits);

  /// Gives each row without a number its former one, or else `next`, which grows with it.
  void settle(std::uint32_t& next);
  /// Whether each row has its number.
  bool isSettled() const { return isSettled_; }

  /// 0 for a row that has none. In range only.
  std::uint32_t at(RowIndex index) const { return sections_[index.section][index.row].number; }
  std::optional<RowIndex> find(std::uint32_t number) const;

 private:
  struct Row {
    std::uint32_t number = 0;
    RowTraits traits;
  };
  /// Rows of the same traits, the lost and the new ones, in order.
  struct Alike {
    std::vector<Row*> lost;
    std::vector<Row*> fresh;
  };

  void makeRows(const std::vector<long>& counts);
  void lose(Row row);
  template <typename TraitOf>
  void recognise(const std::vector<Row*>& fresh, TraitOf traitOf, bool onlyUnlike);

  std::vector<std::vector<Row>> sections_;
  std::vector<Row> lost_;  // Loaded anew since the numbers were settled.
  bool isSettled_ = true;
};

}  // namespace sim
