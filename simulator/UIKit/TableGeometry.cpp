#include "TableGeometry.hpp"

#include <algorithm>

namespace sim {

void TableGeometry::reset(const std::vector<long>& counts, double estimate) {
  sections_.clear();
  sections_.resize(counts.size());
  for (std::size_t section = 0; section < counts.size(); ++section) {
    sections_[section].rows.assign(static_cast<std::size_t>(counts[section]), Row{.height = estimate});
  }
  stale_ = true;
}

std::vector<long> TableGeometry::counts() const {
  std::vector<long> counts;
  counts.reserve(sections_.size());
  for (const Section& section : sections_) counts.push_back(static_cast<long>(section.rows.size()));
  return counts;
}

bool TableGeometry::contains(RowIndex index) const {
  return index.section >= 0 && index.section < sectionCount() && index.row >= 0 &&
         index.row < rowCount(index.section);
}

void TableGeometry::setMargins(double top, double bottom) {
  stale_ = stale_ || top != top_;
  top_ = top;
  bottom_ = bottom;
}

void TableGeometry::setHeader(long section, double height) {
  stale_ = stale_ || sections_[section].header != height;
  sections_[section].header = height;
}

void TableGeometry::setFooter(long section, double height) {
  stale_ = stale_ || sections_[section].footer != height;
  sections_[section].footer = height;
}

void TableGeometry::setHeight(RowIndex index, double height, bool final) {
  Row& at = sections_[index.section].rows[index.row];
  stale_ = stale_ || at.height != height;
  at.height = height;
  at.final = final;
}

void TableGeometry::updateOffsets() const {
  if (!stale_) return;
  double top = top_;
  for (const Section& section : sections_) {
    section.top = top;
    double offset = section.header;
    for (const Row& row : section.rows) {
      row.top = offset;
      offset += row.height;
    }
    section.rowsHeight = offset - section.header;
    top = section.bottom();
  }
  stale_ = false;
}

double TableGeometry::sectionTop(long section) const {
  updateOffsets();
  return sections_[section].top;
}

double TableGeometry::sectionBottom(long section) const {
  updateOffsets();
  return sections_[section].bottom();
}

double TableGeometry::rowTop(RowIndex index) const {
  updateOffsets();
  return sections_[index.section].top + row(index).top;
}

double TableGeometry::totalHeight() const {
  updateOffsets();
  return (sections_.empty() ? top_ : sections_.back().bottom()) + bottom_;
}

std::optional<RowIndex> TableGeometry::firstRowEndingAfter(double y) const {
  updateOffsets();
  auto section = std::partition_point(sections_.begin(), sections_.end(),
                                      [y](const Section& at) { return at.bottom() <= y; });
  for (; section != sections_.end(); ++section) {
    const auto row = std::partition_point(section->rows.begin(), section->rows.end(), [&](const Row& at) {
      return section->top + at.top + at.height <= y;
    });
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
