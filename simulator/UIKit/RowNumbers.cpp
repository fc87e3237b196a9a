#include "RowNumbers.hpp"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace sim {

void RowNumbers::makeRows(const std::vector<long>& counts) {
  sections_.clear();
  sections_.resize(counts.size());
  for (std::size_t section = 0; section < counts.size(); ++section) sections_[section].resize(counts[section]);
  isSettled_ = false;
}

void RowNumbers::lose(Row row) {
  if (row.number != 0) lost_.push_back(std::move(row));
}

void RowNumbers::reload(const std::vector<long>& counts) {
  for (auto& section : sections_) {
    for (Row& row : section) lose(std::move(row));
  }
  makeRows(counts);
}

void RowNumbers::follow(const TableUpdate::Outcome& outcome, const std::vector<long>& counts) {
  auto former = std::exchange(sections_, {});
  makeRows(counts);
  for (std::size_t section = 0; section < former.size(); ++section) {
    for (std::size_t row = 0; row < former[section].size(); ++row) {
      const TableUpdate::Fate& fate = outcome.rows[section][row];
      if (fate.index) {
        sections_[fate.index->section][fate.index->row] = std::move(former[section][row]);
      } else if (fate.reloaded) {
        lose(std::move(former[section][row]));
      }
    }
  }
}

void RowNumbers::know(RowIndex index, RowTraits traits) {
  RowTraits& known = sections_[index.section][index.row].traits;
  const bool saysLess = traits.shown.empty() && traits.model == known.model;
  if (!saysLess) known = std::move(traits);
}

/// Gives the numbers of lost rows to the new ones with the same trait; if `onlyUnlike`, where one row each has it.
template <typename TraitOf>
void RowNumbers::recognise(const std::vector<Row*>& fresh, TraitOf traitOf, bool onlyUnlike) {
  using Trait = decltype(traitOf(RowTraits()));
  std::unordered_map<Trait, Alike> rows;
  rows.reserve(lost_.size());
  for (Row& row : lost_) {
    if (row.number != 0 && traitOf(row.traits) != Trait()) rows[traitOf(row.traits)].lost.push_back(&row);
  }
  for (Row* row : fresh) {
    if (row->number != 0) continue;
    if (const auto found = rows.find(traitOf(row->traits)); found != rows.end()) found->second.fresh.push_back(row);
  }
  for (auto& [trait, alike] : rows) {
    if (onlyUnlike && (alike.lost.size() != 1 || alike.fresh.size() != 1)) continue;
    const std::size_t count = std::min(alike.lost.size(), alike.fresh.size());
    for (std::size_t at = 0; at < count; ++at) alike.fresh[at]->number = std::exchange(alike.lost[at]->number, 0);
  }
}

void RowNumbers::settle(std::uint32_t& next) {
  std::vector<Row*> fresh;
  for (auto& section : sections_) {
    for (Row& row : section) {
      if (row.number == 0) fresh.push_back(&row);
    }
  }
  if (!lost_.empty()) {
    recognise(fresh, [](const RowTraits& traits) { return traits.model.get(); }, false);
    recognise(fresh, [](const RowTraits& traits) { return std::string_view(traits.shown); }, false);
    recognise(fresh, [](const RowTraits& traits) { return std::string_view(traits.label); }, true);
    lost_.clear();
  }
  for (Row* row : fresh) {
    if (row->number == 0) row->number = next++;
  }
  isSettled_ = true;
}

std::optional<RowIndex> RowNumbers::find(std::uint32_t number) const {
  for (std::size_t section = 0; section < sections_.size() && number != 0; ++section) {
    const auto& rows = sections_[section];
    const auto found =
        std::find_if(rows.begin(), rows.end(), [number](const Row& row) { return row.number == number; });
    if (found != rows.end()) return RowIndex{static_cast<long>(section), found - rows.begin()};
  }
  return std::nullopt;
}

}  // namespace sim
