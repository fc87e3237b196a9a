#include "TableGeometry.hpp"

#include <algorithm>

namespace sim {

void TableGeometry::reset(const std::vector<long>& counts, double estimate) {
  sections_.clear();
  sections_.resize(counts.size());
  for (std::size_t section = 0; section < counts.size(); ++section) {
    sections_[section].rows.assign(static_cast<std::size_t>(counts[section]), Row{.height = estimate});
  }
  next_ = {0, 0};
}

std::vector<long> TableGeometry::counts() const {
  std::vector<long> counts;
  counts.reserve(sections_.size());
  for (const Section& section : sections_) counts.push_back(static_cast<long>(section.rows.size()));
  return counts;
}

bool TableGeometry::contains(RowIndex index) const {
  return index.section >= 0 && index.section < sectionCount() && index.row >= 0 && index.row < rowCount(index.section);
}

void TableGeometry::setMargins(double top, double bottom) {
  if (top != top_) invalidate({0, 0});
  top_ = top;
  bottom_ = bottom;
}

void TableGeometry::setHeader(long section, double height) {
  if (sections_[section].header != height) invalidate({section, 0});
  sections_[section].header = height;
}

void TableGeometry::setFooter(long section, double height) {
  if (sections_[section].footer != height) invalidate({section, rowCount(section)});
  sections_[section].footer = height;
}

void TableGeometry::setHeight(RowIndex index, double height, bool final) {
  Row& at = sections_[index.section].rows[index.row];
  if (at.height != height) invalidate({index.section, index.row + 1});
  at.height = height;
  at.final = final;
}

void TableGeometry::invalidate(RowIndex from) {
  if (from < next_) next_ = from;
}

void TableGeometry::update(RowIndex index) const {
  while (next_.section < sectionCount() && !(index < next_)) {
    const Section& section = sections_[next_.section];
    if (next_.row == 0) section.top = next_.section == 0 ? top_ : sections_[next_.section - 1].bottom();
    const double offset =
        next_.row == 0 ? section.header : section.rows[next_.row - 1].top + section.rows[next_.row - 1].height;
    if (next_.row < rowCount(next_.section)) {
      section.rows[next_.row++].top = offset;
    } else {
      section.rowsHeight = offset - section.header;
      next_ = {next_.section + 1, 0};
    }
  }
}

double TableGeometry::sectionTop(long section) const {
  update({section, 0});
  return sections_[section].top;
}

double TableGeometry::sectionBottom(long section) const {
  update({section, rowCount(section)});
  return sections_[section].bottom();
}

double TableGeometry::rowTop(RowIndex index) const {
  update(index);
  return sections_[index.section].top + row(index).top;
}

double TableGeometry::totalHeight() const {
  updateAll();
  return (sections_.empty() ? top_ : sections_.back().bottom()) + bottom_;
}

std::optional<RowIndex> TableGeometry::firstRowEndingAfter(double y) const {
  updateAll();
  auto section =
      std::partition_point(sections_.begin(), sections_.end(), [y](const Section& at) { return at.bottom() <= y; });
  for (; section != sections_.end(); ++section) {
    const auto row = std::partition_point(section->rows.begin(), section->rows.end(),
                                          [&](const Row& at) { return section->top + at.top + at.height <= y; });
    if (row != section->rows.end()) return RowIndex{section - sections_.begin(), row - section->rows.begin()};
  }
  return std::nullopt;
}

std::optional<RowIndex> TableGeometry::next(RowIndex index) const {
  if (index.row + 1 < rowCount(index.section)) return RowIndex{index.section, index.row + 1};
  for (long section = index.section + 1; section < sectionCount(); ++section) {
    if (rowCount(section) > 0) return RowIndex{section, 0};
  }
  return std::nullopt;
}

double TableGeometry::gap(RowIndex upper, RowIndex lower) const {
  double gap = 0;
  for (long section = upper.section; section < lower.section; ++section) {
    gap += sections_[section].footer + sections_[section + 1].header;
  }
  return gap;
}

}  // namespace sim
