#include <Preferences/GroupIndex.hpp>

#include <algorithm>

namespace sim {

GroupIndex::GroupIndex(const std::vector<bool>& isGroup) : count_(isGroup.size()) {
  for (std::size_t index = 0; index < count_; ++index) {
    if (isGroup[index]) starts_.push_back(index);
  }
}

std::size_t GroupIndex::rowsIn(std::size_t group) const noexcept {
  if (group >= starts_.size()) return 0;
  const std::size_t end = group + 1 < starts_.size() ? starts_[group + 1] : count_;
  return end - starts_[group] - 1;
}

std::optional<std::size_t> GroupIndex::indexOfGroup(std::size_t group) const noexcept {
  if (group >= starts_.size()) return std::nullopt;
  return starts_[group];
}

std::optional<std::size_t> GroupIndex::indexOf(std::size_t group, std::size_t row) const noexcept {
  if (row >= rowsIn(group)) return std::nullopt;
  return starts_[group] + 1 + row;
}

std::optional<GroupIndex::Place> GroupIndex::placeOf(std::size_t index) const noexcept {
  if (index >= count_ || starts_.empty() || index < starts_.front()) return std::nullopt;
  const auto after = std::upper_bound(starts_.begin(), starts_.end(), index);
  const std::size_t group = static_cast<std::size_t>(after - starts_.begin()) - 1;
  if (starts_[group] == index) return Place{group, std::nullopt};
  return Place{group, index - starts_[group] - 1};
}

}  // namespace sim
