// The arithmetic of LayoutSolver: rows of numbers and the steps of a simplex. Plain C++; any thread, one at a time.
#pragma once

#include <UIKit/LayoutSolver.hpp>

#include <optional>
#include <span>
#include <vector>

namespace sim {

/// What is smaller is rounding: points, or points of error saved for each point.
constexpr double kLayoutTolerance = 1e-7;
/// What is smaller in a coefficient is rounding.
constexpr double kLayoutZero = 1e-10;

/// A sum of columns and a constant. `terms` are sorted by column.
struct LayoutRow {
  int basic = -1;  ///< The column that the row is the value of.
  double constant = 0;
  std::vector<LayoutTerm> terms;

  /// 0 for a column that is not among the terms.
  double coefficient(int column) const;
  /// Adds `factor` × `other`, and leaves the column `dropped` out.
  void add(double factor, const LayoutRow& other, int dropped);
  /// Makes `column`, one of the terms, what the row is the value of.
  void solveFor(int column);
};

/// The simplex tableau of equations that hang together.
///
/// Columns are the variables, which are free, and after them slacks and errors, which are never negative. A free column
/// is solved for by the first equation that has it, so that the rows of slacks and errors (`rows_`) have none: they
/// alone are pivoted. The rows of free columns (`free_`) are evaluated in the end, in their order: a row may name the
/// columns of earlier ones, so that rows of a long chain stay short.
class LayoutTableau final {
 public:
  explicit LayoutTableau(int variableCount);

  /// False when it contradicts what was added before. In descending priority, of the required ones the exact ones
  /// first.
  bool add(const LayoutEquation& equation, std::size_t number);

  /// Makes the errors small, level by level. The number of a required equation that cannot hold, if there is one.
  std::optional<std::size_t> optimize();

  /// The values of the variables, into the places of their numbers.
  void read(std::vector<double>& values) const;

 private:
  struct Error {
    double priority;
    int column;
    std::size_t number;
  };

  /// Terms minus constant.
  LayoutRow expressionOf(const LayoutEquation& equation) const;
  /// Has no column left that is solved for.
  void expand(LayoutRow& row) const;
  /// The free column with the largest coefficient, of those only that no row names yet where `isUnnamed`; -1 for none.
  int largestColumn(const LayoutRow& row, bool isUnnamed) const;
  /// `row` is 0: solves it for `column`, which goes out of earlier rows.
  void addFree(LayoutRow row, int column);
  void noteMentions(std::size_t at);
  void minimize(std::span<const Error> errors);
  int enteringColumn(const LayoutRow& cost, bool takesFirst) const;
  int leavingRow(int entering) const;
  void pivot(std::size_t leaving, int entering);
  std::optional<std::size_t> lastOffending(std::span<const Error> errors) const;

  int variableCount_;
  int columnCount_;
  std::vector<LayoutRow> rows_;
  std::vector<LayoutRow> free_;
  std::vector<int> freeRowOf_;                      ///< By variable; -1 for those that nothing determines yet.
  std::vector<std::vector<std::size_t>> mentions_;  ///< By variable that is not solved for: rows of `free_`.
  std::vector<Error> errors_;
  std::vector<bool> held_;  ///< Columns that stay 0 for the sake of a level that was optimised.
};

}  // namespace sim
