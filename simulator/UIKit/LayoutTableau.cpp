#include "LayoutTableau.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sim {

double LayoutRow::coefficient(int column) const {
  const auto at = std::lower_bound(terms.begin(), terms.end(), column,
                                   [](const LayoutTerm& term, int wanted) { return term.variable < wanted; });
  return at != terms.end() && at->variable == column ? at->coefficient : 0;
}

void LayoutRow::add(double factor, const LayoutRow& other, int dropped) {
  thread_local std::vector<LayoutTerm> sum;
  sum.clear();
  const auto keep = [&](int column, double coefficient) {
    if (column != dropped && std::abs(coefficient) > kLayoutZero) sum.push_back({column, coefficient});
  };
  auto own = terms.begin();
  auto others = other.terms.begin();
  while (own != terms.end() || others != other.terms.end()) {
    if (others == other.terms.end() || (own != terms.end() && own->variable < others->variable)) {
      keep(own->variable, own->coefficient);
      ++own;
    } else if (own == terms.end() || others->variable < own->variable) {
      keep(others->variable, factor * others->coefficient);
      ++others;
    } else {
      keep(own->variable, own->coefficient + factor * others->coefficient);
      ++own, ++others;
    }
  }
  terms.swap(sum);
  constant += factor * other.constant;
}

void LayoutRow::solveFor(int column) {
  const double factor = -1 / coefficient(column);
  std::erase_if(terms, [column](const LayoutTerm& term) { return term.variable == column; });
  for (LayoutTerm& term : terms) term.coefficient *= factor;
  constant *= factor;
  if (basic >= 0) {
    const LayoutTerm former{basic, -factor};
    terms.insert(std::upper_bound(terms.begin(), terms.end(), former,
                                  [](const auto& a, const auto& b) { return a.variable < b.variable; }),
                 former);
  }
  basic = column;
}

LayoutTableau::LayoutTableau(int variableCount) : variableCount_(variableCount), columnCount_(variableCount) {
  freeRowOf_.assign(static_cast<std::size_t>(variableCount), -1);
  mentions_.resize(static_cast<std::size_t>(variableCount));
}

bool LayoutTableau::add(const LayoutEquation& equation, std::size_t number) {
  LayoutRow row = expressionOf(equation);
  // A variable that nothing has named yet can take up the equation as it stands; else all that is known is put in.
  int column = largestColumn(row, true);
  if (column < 0) {
    expand(row);
    column = largestColumn(row, false);
  }
  const bool isFree = column >= 0;
  const bool isRequired = equation.priority >= kRequiredLayoutPriority;
  if (isRequired && equation.relation == LayoutRelation::kEqual) {
    if (!isFree) return std::abs(row.constant) <= kLayoutTolerance;
    addFree(std::move(row), column);
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
    addFree(std::move(row), column);
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

std::optional<std::size_t> LayoutTableau::optimize() {
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

void LayoutTableau::read(std::vector<double>& values) const {
  std::vector<double> columns(static_cast<std::size_t>(columnCount_), 0);
  for (const LayoutRow& row : rows_) columns[row.basic] = row.constant;
  for (const LayoutRow& row : free_) {
    double value = row.constant;
    for (const LayoutTerm& term : row.terms) value += term.coefficient * columns[term.variable];
    values[row.basic] = columns[row.basic] = value + 0.0;  // Never -0.
  }
}

LayoutRow LayoutTableau::expressionOf(const LayoutEquation& equation) const {
  LayoutRow row;
  row.constant = -equation.constant;
  LayoutRow single;
  for (const LayoutTerm& term : equation.terms) {
    single.terms.assign(1, {term.variable, 1});
    row.add(term.coefficient, single, -1);
  }
  return row;
}

void LayoutTableau::expand(LayoutRow& row) const {
  for (;;) {
    // The latest first: its row names earlier ones alone, so that each is put in once.
    int latest = -1;
    for (const LayoutTerm& term : row.terms) {
      if (term.variable < variableCount_) latest = std::max(latest, freeRowOf_[term.variable]);
    }
    if (latest < 0) return;
    const LayoutRow& known = free_[latest];
    row.add(row.coefficient(known.basic), known, known.basic);
  }
}

int LayoutTableau::largestColumn(const LayoutRow& row, bool isUnnamed) const {
  int column = -1;
  double largest = 0;
  for (const LayoutTerm& term : row.terms) {
    if (term.variable >= variableCount_) break;
    if (isUnnamed && (freeRowOf_[term.variable] >= 0 || !mentions_[term.variable].empty())) continue;
    if (std::abs(term.coefficient) > largest + kLayoutTolerance) {
      largest = std::abs(term.coefficient);
      column = term.variable;
    }
  }
  return column;
}

void LayoutTableau::addFree(LayoutRow row, int column) {
  row.solveFor(column);
  for (const std::size_t at : mentions_[column]) {
    const double factor = free_[at].coefficient(column);
    if (factor == 0) continue;  // It went with another column.
    free_[at].add(factor, row, column);
    noteMentions(at);
  }
  freeRowOf_[column] = static_cast<int>(free_.size());
  free_.push_back(std::move(row));
  noteMentions(free_.size() - 1);
}

void LayoutTableau::noteMentions(std::size_t at) {
  for (const LayoutTerm& term : free_[at].terms) {
    if (term.variable >= variableCount_) break;
    if (freeRowOf_[term.variable] < 0) mentions_[term.variable].push_back(at);
  }
}

void LayoutTableau::minimize(std::span<const Error> errors) {
  LayoutRow cost;
  std::vector<bool> isCost(static_cast<std::size_t>(columnCount_), false);
  LayoutRow single;
  for (const Error& error : errors) isCost[error.column] = true;
  for (const LayoutRow& row : rows_) {
    if (isCost[row.basic]) {
      cost.add(1, row, -1);
      isCost[row.basic] = false;
    }
  }
  for (const Error& error : errors) {
    if (!isCost[error.column]) continue;
    single.terms.assign(1, {error.column, 1});
    cost.add(1, single, -1);
  }
  // Steps that save nothing may go round in circles, which the smallest column that helps never does.
  for (std::size_t idle = 0;;) {
    const int entering = enteringColumn(cost, idle > rows_.size());
    if (entering < 0) break;
    const int leaving = leavingRow(entering);
    if (leaving < 0) break;  // No error can be less than nothing: only rounding gets here.
    const double before = cost.constant;
    pivot(static_cast<std::size_t>(leaving), entering);
    if (const double factor = cost.coefficient(entering); factor != 0) cost.add(factor, rows_[leaving], entering);
    idle = cost.constant < before - kLayoutTolerance ? 0 : idle + 1;
  }
  for (const LayoutTerm& term : cost.terms) {
    if (term.coefficient > kLayoutTolerance) held_[term.variable] = true;
  }
}

int LayoutTableau::enteringColumn(const LayoutRow& cost, bool takesFirst) const {
  int entering = -1;
  double steepest = -kLayoutTolerance;
  for (const LayoutTerm& term : cost.terms) {
    if (held_[term.variable] || term.coefficient >= steepest) continue;
    entering = term.variable;
    steepest = term.coefficient;
    if (takesFirst) break;
  }
  return entering;
}

int LayoutTableau::leavingRow(int entering) const {
  int leaving = -1;
  double nearest = std::numeric_limits<double>::infinity();
  for (std::size_t at = 0; at < rows_.size(); ++at) {
    const double coefficient = rows_[at].coefficient(entering);
    if (coefficient > -kLayoutZero) continue;
    const double limit = std::max(rows_[at].constant, 0.0) / -coefficient;
    const bool isNearer = leaving < 0 || limit < nearest - kLayoutZero ||
                          (limit < nearest + kLayoutZero && rows_[at].basic < rows_[leaving].basic);
    if (isNearer) {
      leaving = static_cast<int>(at);
      nearest = limit;
    }
  }
  return leaving;
}

void LayoutTableau::pivot(std::size_t leaving, int entering) {
  rows_[leaving].solveFor(entering);
  const LayoutRow& pivot = rows_[leaving];
  for (std::size_t at = 0; at < rows_.size(); ++at) {
    if (at == leaving) continue;
    if (const double factor = rows_[at].coefficient(entering); factor != 0) rows_[at].add(factor, pivot, entering);
  }
}

std::optional<std::size_t> LayoutTableau::lastOffending(std::span<const Error> errors) const {
  std::optional<std::size_t> last;
  for (const LayoutRow& row : rows_) {
    if (row.constant <= kLayoutTolerance) continue;
    const auto error = std::find_if(errors.begin(), errors.end(),
                                    [&](const Error& candidate) { return candidate.column == row.basic; });
    if (error != errors.end()) last = std::max(last.value_or(0), error->number);
  }
  return last;
}

}  // namespace sim
