// Where the rows of a table view lie. Plain C++; heights and offsets in points.
#pragma once

#include <compare>
#include <cstddef>
#include <optional>
#include <vector>

namespace sim {

/// A row of a table view. Sections and rows count from 0.
struct RowIndex {
  long section = 0;
  long row = 0;
  auto operator<=>(const RowIndex&) const = default;
};

/// The heights of all headers, rows and footers, and the offsets that follow from them.
///
/// Offsets below a change are computed again when they are asked for, and only down to the row in question: visiting
/// the rows from top to bottom while their heights become known takes linear time. Arguments have to be in range.
class TableGeometry final {
 public:
  /// Forgets everything; section s gets `counts[s]` rows of the height `estimate`.
  void reset(const std::vector<long>& counts, double estimate);

  long sectionCount() const { return static_cast<long>(sections_.size()); }
  long rowCount(long section) const { return static_cast<long>(sections_[section].rows.size()); }
  std::vector<long> counts() const;
  bool contains(RowIndex index) const;

  /// The height above the first section and below the last one.
  void setMargins(double top, double bottom);
  double header(long section) const { return sections_[section].header; }
  double footer(long section) const { return sections_[section].footer; }
  void setHeader(long section, double height);
  void setFooter(long section, double height);
  double height(RowIndex index) const { return row(index).height; }
  /// False while the height is an estimate.
  bool isFinal(RowIndex index) const { return row(index).final; }
  void setHeight(RowIndex index, double height, bool final);

  double sectionTop(long section) const;
  double sectionBottom(long section) const;
  double rowTop(RowIndex index) const;
  double totalHeight() const;

  /// The first row whose lower edge lies below `y`; none when all end above.
  std::optional<RowIndex> firstRowEndingAfter(double y) const;
  /// The row in display order; none after the last.
  std::optional<RowIndex> next(RowIndex index) const;
  /// What lies between two neighbouring rows in display order: footers, headers, empty sections.
  double gap(RowIndex upper, RowIndex lower) const;

 private:
  struct Row {
    double height = 0;
    mutable double top = 0;  // From the top of the section.
    bool final = false;
  };
  struct Section {
    double header = 0;
    double footer = 0;
    std::vector<Row> rows;
    mutable double top = 0;
    mutable double rowsHeight = 0;
    double bottom() const { return top + header + rowsHeight + footer; }
  };

  const Row& row(RowIndex index) const { return sections_[index.section].rows[index.row]; }
  /// Offsets from this row on (or the section's end) are out of date.
  void invalidate(RowIndex from);
  /// Brings the offsets up to date down to and including `index`.
  void update(RowIndex index) const;
  void updateAll() const { update({sectionCount(), 0}); }

  std::vector<Section> sections_;
  double top_ = 0;
  double bottom_ = 0;
  mutable RowIndex next_{0, 0};  // The first row whose offset is out of date, or the end of its section.
};

}  // namespace sim
