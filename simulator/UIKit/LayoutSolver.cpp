#include "LayoutSolver.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <tuple>

namespace sim {
namespace {

constexpr double kZero = 1e-10;      // What is smaller in a coefficient is rounding.
constexpr double kTolerance = 1e-7;  // Points, or points of error saved for each point.

/// A sum of columns and a constant. `terms` are sorted by column.
struct Row {
  int basic = -1;  ///< The column that the row is the value of.
  double constant = 0;
  std::vector<LayoutTerm> terms;

  double coefficient(int column) const {
    const auto at = std::lower_bound(terms.begin(), terms.end(), column,
                                     [](const LayoutTerm& term, int wanted) { return term.variable < wanted; });
    return at != terms.end() && at->variable == column ? at->coefficient : 0;
  }
};

/// `target` + `factor` × `other`, without `dropped`.
void addTo(Row& target, double factor, const Row& other, int dropped) {
  thread_local std::vector<LayoutTerm> sum;
  sum.clear();
  const auto keep = [&](int column, double coefficient) {
    if (column != dropped && std::abs(coefficient) > kZero) sum.push_back({column, coefficient});
  };
  auto own = target.terms.begin();
  auto others = other.terms.begin();
  while (own != target.terms.end() || others != other.terms.end()) {
    if (others == other.terms.end() || (own != target.terms.end() && own->variable < others->variable)) {
      keep(own->variable, own->coefficient);
      ++own;
    } else if (own == target.terms.end() || others->variable < own->variable) {
      keep(others->variable, factor * others->coefficient);
      ++others;
    } else {
      keep(own->variable, own->coefficient + factor * others->coefficient);
      ++own, ++others;
    }
  }
  target.terms.swap(sum);
  target.constant += factor * other.constant;
}

/// Makes `column`, one of the row's terms, what the row is the value of.
void solveFor(Row& row, int column) {
  const double factor = -1 / row.coefficient(column);
  std::erase_if(row.terms, [column](const LayoutTerm& term) { return term.variable == column; });
  for (LayoutTerm& term : row.terms) term.coefficient *= factor;
  row.constant *= factor;
  if (row.basic >= 0) {
    const LayoutTerm former{row.basic, -factor};
    row.terms.insert(std::upper_bound(row.terms.begin(), row.terms.end(), former,
                                      [](const auto& a, const auto& b) { return a.variable < b.variable; }),
                     former);
  }
  row.basic = column;
}

/// The simplex tableau of equations that hang together.
///
/// Columns are the variables, which are free, and after them slacks and errors, which are never negative. A free column
/// is solved for by the first equation that has it, so that the rows of slacks and errors (`rows_`) have none: they
/// alone are pivoted. The rows of free columns (`free_`) are evaluated in the end.
class Tableau final {
 public:
  explicit Tableau(int variableCount) : variableCount_(variableCount), columnCount_(variableCount) {
    freeRowOf_.assign(static_cast<std::size_t>(variableCount), -1);
  }

  /// False when it contradicts what was added before. In descending priority, of the required ones the exact ones
  /// first.
  bool add(const LayoutEquation& equation, std::size_t number) {
    Row row = expressionOf(equation);
    const auto free = std::find_if(row.terms.begin(), row.terms.end(),
                                   [this](const LayoutTerm& term) { return term.variable < variableCount_; });
    const bool isFree = free != row.terms.end();
    const bool isRequired = equation.priority >= kRequiredLayoutPriority;
    if (isRequired && equation.relation == LayoutRelation::kEqual) {
      if (!isFree) return std::abs(row.constant) <= kTolerance;
      addFree(std::move(row));
      return true;
    }
    if (!isFree && row.terms.empty() && !isRequired) return true;  // Nothing can be done about it.

    // row = above - below, each of them a slack or an error.
    const int above = columnCount_++;
    const int below = columnCount_++;
    if (equation.relation != LayoutRelation::kAtLeast)
      errors_.push_back({std::min(equation.priority, kRequiredLayoutPriority), above, number});
    if (equation.relation != LayoutRelation::kAtMost)
      errors_.push_back({std::min(equation.priority, kRequiredLayoutPriority), below, number});
    if (isFree) {
      row.terms.push_back({above, -1});
      row.terms.push_back({below, 1});
      addFree(std::move(row));
    } else if (row.constant >= 0) {
      row.basic = above;
      row.terms.push_back({below, 1});
      rows_.push_back(std::move(row));
    } else {
      for (LayoutTerm& term : row.terms) term.coefficient = -term.coefficient;
      row.constant = -row.constant;
      row.basic = below;
      row.terms.push_back({above, 1});
      rows_.push_back(std::move(row));
    }
    return true;
  }

  /// Makes the errors small, level by level. The number of a required equation that cannot hold, if there is one.
  std::optional<std::size_t> optimize() {
    held_.assign(static_cast<std::size_t>(columnCount_), false);
    for (auto level = errors_.begin(); level != errors_.end();) {
      const auto end =
          std::find_if(level, errors_.end(), [&](const Error& error) { return error.priority != level->priority; });
      minimize({level, end});
      if (level->priority >= kRequiredLayoutPriority) {
        if (const auto broken = lastOffending({level, end})) return broken;
      }
      level = end;
    }
    return std::nullopt;
  }

  void read(std::vector<double>& values) const {
    std::vector<double> columns(static_cast<std::size_t>(columnCount_), 0);
    for (const Row& row : rows_) columns[row.basic] = row.constant;
    for (const Row& row : free_) {
      double value = row.constant;
      for (const LayoutTerm& term : row.terms) value += term.coefficient * columns[term.variable];
      values[row.basic] = value + 0.0;  // Never -0.
    }
  }

 private:
  struct Error {
    double priority;
    int column;
    std::size_t number;
  };

  /// Terms minus constant, in terms of what is not solved for.
  Row expressionOf(const LayoutEquation& equation) const {
    Row row;
    row.constant = -equation.constant;
    Row single;
    for (const LayoutTerm& term : equation.terms) {
      if (term.coefficient == 0) continue;
      const int known = freeRowOf_[term.variable];
      if (known >= 0) {
        addTo(row, term.coefficient, free_[known], -1);
      } else {
        single.terms.assign(1, {term.variable, 1});
        addTo(row, term.coefficient, single, -1);
      }
    }
    return row;
  }

  int largestFree(const Row& row) const {
    int column = -1;
    double largest = 0;
    for (const LayoutTerm& term : row.terms) {
      if (term.variable >= variableCount_) break;
      if (std::abs(term.coefficient) > largest + kTolerance) {
        largest = std::abs(term.coefficient);
        column = term.variable;
      }
    }
    return column;
  }

  /// `row` is 0; free columns that are known already go by it.
  void addFree(Row row) {
    const int column = largestFree(row);
    solveFor(row, column);
    for (Row& other : free_) {
      if (const double factor = other.coefficient(column); factor != 0) addTo(other, factor, row, column);
    }
    freeRowOf_[column] = static_cast<int>(free_.size());
    free_.push_back(std::move(row));
  }

  void minimize(std::span<const Error> errors) {
    Row cost;
    std::vector<bool> isCost(static_cast<std::size_t>(columnCount_), false);
    Row single;
    for (const Error& error : errors) isCost[error.column] = true;
    for (const Row& row : rows_) {
      if (isCost[row.basic]) {
        addTo(cost, 1, row, -1);
        isCost[row.basic] = false;
      }
    }
    for (const Error& error : errors) {
      if (!isCost[error.column]) continue;
      single.terms.assign(1, {error.column, 1});
      addTo(cost, 1, single, -1);
    }
    // Steps that save nothing may go round in circles, which the smallest column that helps never does.
    for (std::size_t idle = 0;;) {
      const int entering = enteringColumn(cost, idle > rows_.size());
      if (entering < 0) break;
      const int leaving = leavingRow(entering);
      if (leaving < 0) break;  // No error can be less than nothing: only rounding gets here.
      const double before = cost.constant;
      pivot(static_cast<std::size_t>(leaving), entering);
      if (const double factor = cost.coefficient(entering); factor != 0) addTo(cost, factor, rows_[leaving], entering);
      idle = cost.constant < before - kTolerance ? 0 : idle + 1;
    }
    for (const LayoutTerm& term : cost.terms) {
      if (term.coefficient > kTolerance) held_[term.variable] = true;
    }
  }

  int enteringColumn(const Row& cost, bool takesFirst) const {
    int entering = -1;
    double steepest = -kTolerance;
    for (const LayoutTerm& term : cost.terms) {
      if (held_[term.variable] || term.coefficient >= steepest) continue;
      entering = term.variable;
      steepest = term.coefficient;
      if (takesFirst) break;
    }
    return entering;
  }

  int leavingRow(int entering) const {
    int leaving = -1;
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      const double coefficient = rows_[at].coefficient(entering);
      if (coefficient > -kZero) continue;
      const double limit = std::max(rows_[at].constant, 0.0) / -coefficient;
      const bool isNearer =
          leaving < 0 || limit < nearest - kZero || (limit < nearest + kZero && rows_[at].basic < rows_[leaving].basic);
      if (isNearer) {
        leaving = static_cast<int>(at);
        nearest = limit;
      }
    }
    return leaving;
  }

  void pivot(std::size_t leaving, int entering) {
    solveFor(rows_[leaving], entering);
    const Row& pivot = rows_[leaving];
    for (std::size_t at = 0; at < rows_.size(); ++at) {
      if (at == leaving) continue;
      if (const double factor = rows_[at].coefficient(entering); factor != 0) addTo(rows_[at], factor, pivot, entering);
    }
  }

  std::optional<std::size_t> lastOffending(std::span<const Error> errors) const {
    std::optional<std::size_t> last;
    for (const Row& row : rows_) {
      if (row.constant <= kTolerance) continue;
      const auto error = std::find_if(errors.begin(), errors.end(),
                                      [&](const Error& candidate) { return candidate.column == row.basic; });
      if (error != errors.end()) last = std::max(last.value_or(0), error->number);
    }
    return last;
  }

  int variableCount_;
  int columnCount_;
  std::vector<Row> rows_;
  std::vector<Row> free_;
  std::vector<int> freeRowOf_;  ///< By variable; -1 for those that nothing determines yet.
  std::vector<Error> errors_;
  std::vector<bool> held_;  ///< Columns that stay 0 for the sake of a level that was optimised.
};

/// Equations that share no variable with others, as indices, and the number of their variables.
struct Piece {
  std::vector<std::size_t> equations;
  int variableCount = 0;
};

/// `local` gets the number of each variable in its piece.
std::vector<Piece> piecesOf(int variableCount, std::span<const LayoutEquation> equations, std::vector<int>& local,
                            std::vector<int>& pieceOf) {
  std::vector<int> parent(static_cast<std::size_t>(variableCount));
  std::iota(parent.begin(), parent.end(), 0);
  const auto root = [&parent](int variable) {
    while (parent[variable] != variable) variable = parent[variable] = parent[parent[variable]];
    return variable;
  };
  for (const LayoutEquation& equation : equations) {
    for (const LayoutTerm& term : equation.terms) {
      parent[root(term.variable)] = root(equation.terms.front().variable);
    }
  }
  std::vector<Piece> pieces;
  pieceOf.assign(static_cast<std::size_t>(variableCount), -1);
  local.assign(static_cast<std::size_t>(variableCount), 0);
  for (int variable = 0; variable < variableCount; ++variable) {
    int& piece = pieceOf[root(variable)];
    if (piece < 0) {
      piece = static_cast<int>(pieces.size());
      pieces.emplace_back();
    }
    pieceOf[variable] = piece;
    local[variable] = pieces[piece].variableCount++;
  }
  for (std::size_t number = 0; number < equations.size(); ++number) {
    if (equations[number].terms.empty()) continue;
    pieces[pieceOf[equations[number].terms.front().variable]].equations.push_back(number);
  }
  return pieces;
}

bool isRequiredEqual(const LayoutEquation& equation) {
  return equation.relation == LayoutRelation::kEqual && equation.priority >= kRequiredLayoutPriority;
}

/// First what is exact, then by priority, each in its own order.
void sortForTableau(std::vector<std::size_t>& numbers, std::span<const LayoutEquation> equations) {
  const auto place = [&](std::size_t number) {
    const LayoutEquation& equation = equations[number];
    return std::tuple(!isRequiredEqual(equation), -std::min(equation.priority, kRequiredLayoutPriority), number);
  };
  std::sort(numbers.begin(), numbers.end(), [&](std::size_t a, std::size_t b) { return place(a) < place(b); });
}

/// Solves one piece, whose variables are numbered by `local`; values are of that numbering.
std::vector<double> solvePiece(Piece piece, std::span<const LayoutEquation> equations, const std::vector<int>& local,
                               std::vector<std::size_t>& broken) {
  sortForTableau(piece.equations, equations);
  std::vector<LayoutEquation> own;
  own.reserve(piece.equations.size());
  for (const std::size_t number : piece.equations) {
    own.push_back(equations[number]);
    for (LayoutTerm& term : own.back().terms) term.variable = local[term.variable];
  }
  std::vector<bool> isLeftOut(own.size(), false);
  std::vector<double> values(static_cast<std::size_t>(piece.variableCount), 0);
  for (;;) {
    Tableau tableau(piece.variableCount);
    for (std::size_t at = 0; at < own.size(); ++at) {
      if (isLeftOut[at] || tableau.add(own[at], at)) continue;
      isLeftOut[at] = true;
      broken.push_back(piece.equations[at]);
    }
    const auto impossible = tableau.optimize();
    if (!impossible) {
      tableau.read(values);
      return values;
    }
    isLeftOut[*impossible] = true;
    broken.push_back(piece.equations[*impossible]);
  }
}

bool holdsWithoutVariables(const LayoutEquation& equation) {
  switch (equation.relation) {
    case LayoutRelation::kAtMost: return equation.constant >= -kTolerance;
    case LayoutRelation::kEqual: return std::abs(equation.constant) <= kTolerance;
    case LayoutRelation::kAtLeast: return equation.constant <= kTolerance;
  }
  return true;
}

}  // namespace

LayoutSolution solveLayout(int variableCount, std::span<const LayoutEquation> equations) {
  LayoutSolution solution;
  solution.values.assign(static_cast<std::size_t>(variableCount), 0);
  for (std::size_t number = 0; number < equations.size(); ++number) {
    const LayoutEquation& equation = equations[number];
    if (equation.terms.empty() && equation.priority >= kRequiredLayoutPriority && !holdsWithoutVariables(equation)) {
      solution.broken.push_back(number);
    }
  }
  std::vector<int> local;
  std::vector<int> pieceOf;
  const std::vector<Piece> pieces = piecesOf(variableCount, equations, local, pieceOf);
  std::vector<std::vector<double>> values;
  values.reserve(pieces.size());
  for (const Piece& piece : pieces) values.push_back(solvePiece(piece, equations, local, solution.broken));
  for (int variable = 0; variable < variableCount; ++variable) {
    solution.values[variable] = values[pieceOf[variable]][local[variable]];
  }
  std::sort(solution.broken.begin(), solution.broken.end());
  return solution;
}

std::vector<std::size_t> layoutConflict(int variableCount, std::span<const LayoutEquation> equations,
                                        std::size_t broken) {
  std::vector<std::size_t> conflict;
  for (std::size_t number = 0; number < equations.size(); ++number) {
    if (equations[number].priority >= kRequiredLayoutPriority) conflict.push_back(number);
  }
  const auto canHold = [&](const std::vector<std::size_t>& numbers) {
    std::vector<LayoutEquation> chosen;
    for (const std::size_t number : numbers) chosen.push_back(equations[number]);
    return solveLayout(variableCount, chosen).broken.empty();
  };
  // Other contradictions than that of `broken` go first.
  const LayoutSolution all = solveLayout(variableCount, equations);
  std::erase_if(conflict, [&](std::size_t number) {
    return number != broken && std::binary_search(all.broken.begin(), all.broken.end(), number);
  });
  if (canHold(conflict)) return {broken};
  for (std::size_t at = 0; at < conflict.size();) {
    std::vector<std::size_t> fewer = conflict;
    fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(at));
    if (conflict[at] != broken && !canHold(fewer)) conflict = std::move(fewer);
    else ++at;
  }
  return conflict;
}

}  // namespace sim
