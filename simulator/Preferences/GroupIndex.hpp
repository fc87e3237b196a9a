// Where the rows of a flat list of groups and rows stand in a table. Plain C++.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace sim {

/// Translates between indexes of a flat list, in which each group stands before its rows, and sections and rows of a
/// table. The list starts with a group.
class GroupIndex final {
 public:
  /// Where one entry stands; a group itself has no row.
  struct Place {
    std::size_t group;
    std::optional<std::size_t> row;
  };

  GroupIndex() = default;
  /// `isGroup` says for each entry whether it is a group.
  explicit GroupIndex(const std::vector<bool>& isGroup);

  std::size_t groups() const noexcept { return starts_.size(); }
  /// 0 for a group that is not there.
  std::size_t rowsIn(std::size_t group) const noexcept;
  /// Index of the group's own entry.
  std::optional<std::size_t> indexOfGroup(std::size_t group) const noexcept;
  std::optional<std::size_t> indexOf(std::size_t group, std::size_t row) const noexcept;
  std::optional<Place> placeOf(std::size_t index) const noexcept;

 private:
  std::vector<std::size_t> starts_;
  std::size_t count_ = 0;
};

}  // namespace sim
