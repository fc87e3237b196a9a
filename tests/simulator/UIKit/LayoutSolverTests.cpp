#include <UIKit/LayoutSolver.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <random>

using sim::layoutConflict;
using sim::LayoutEquation;
using sim::LayoutRelation;
using sim::LayoutSolution;
using sim::LayoutTerm;
using sim::solveLayout;

namespace {

constexpr double kRequired = sim::kRequiredLayoutPriority;
constexpr auto kAtMost = LayoutRelation::kAtMost;
constexpr auto kEqual = LayoutRelation::kEqual;
constexpr auto kAtLeast = LayoutRelation::kAtLeast;

double errorOf(const LayoutEquation& equation, const std::vector<double>& values) {
  double sum = -equation.constant;
  for (const LayoutTerm& term : equation.terms)
    sum += term.coefficient * values[static_cast<std::size_t>(term.variable)];
  if (equation.relation == kAtMost) return std::max(sum, 0.0);
  if (equation.relation == kAtLeast) return std::max(-sum, 0.0);
  return std::abs(sum);
}

/// The sums of errors, the highest priority first.
using Errors = std::map<double, double, std::greater<>>;

Errors errorsOf(const std::vector<LayoutEquation>& equations, const std::vector<double>& values) {
  Errors errors;
  for (const LayoutEquation& equation : equations) errors[equation.priority] += errorOf(equation, values);
  return errors;
}

bool isBetter(const Errors& one, const Errors& other, double tolerance) {
  for (auto at = one.begin(), other_at = other.begin(); at != one.end(); ++at, ++other_at) {
    if (at->second < other_at->second - tolerance) return true;
    if (at->second > other_at->second + tolerance) return false;
  }
  return false;
}

/// The one point in which all of `chosen` hold exactly; nothing when there is none or more than one.
std::optional<std::vector<double>> crossing(const std::vector<LayoutEquation>& equations,
                                            const std::vector<std::size_t>& chosen) {
  const std::size_t size = chosen.size();
  std::vector<std::vector<double>> rows(size, std::vector<double>(size + 1, 0));
  for (std::size_t at = 0; at < size; ++at) {
    for (const LayoutTerm& term : equations[chosen[at]].terms) {
      rows[at][static_cast<std::size_t>(term.variable)] += term.coefficient;
    }
    rows[at][size] = equations[chosen[at]].constant;
  }
  for (std::size_t column = 0; column < size; ++column) {
    std::size_t best = column;
    for (std::size_t at = column; at < size; ++at) {
      if (std::abs(rows[at][column]) > std::abs(rows[best][column])) best = at;
    }
    if (std::abs(rows[best][column]) < 1e-9) return std::nullopt;
    std::swap(rows[best], rows[column]);
    for (std::size_t at = 0; at < size; ++at) {
      if (at == column) continue;
      const double factor = rows[at][column] / rows[column][column];
      for (std::size_t k = 0; k <= size; ++k) rows[at][k] -= factor * rows[column][k];
    }
  }
  std::vector<double> values(size);
  for (std::size_t at = 0; at < size; ++at) values[at] = rows[at][size] / rows[at][at];
  return values;
}

/// The best errors that any point has: sums of absolute values have their least, level by level, where as many of the
/// equations as there are variables cross, if any do.
Errors bestErrors(int variableCount, const std::vector<LayoutEquation>& equations) {
  std::optional<Errors> best;
  std::vector<std::size_t> chosen(static_cast<std::size_t>(variableCount));
  const std::function<void(std::size_t, std::size_t)> choose = [&](std::size_t place, std::size_t from) {
    if (place == chosen.size()) {
      const auto values = crossing(equations, chosen);
      if (!values) return;
      const Errors errors = errorsOf(equations, *values);
      if (!best || isBetter(errors, *best, 1e-9)) best = errors;
      return;
    }
    for (std::size_t number = from; number < equations.size(); ++number) {
      chosen[place] = number;
      choose(place + 1, number + 1);
    }
  };
  choose(0, 0);
  return best.value_or(Errors{});
}

LayoutEquation equation(std::vector<LayoutTerm> terms, LayoutRelation relation, double constant,
                        double priority = kRequired) {
  return {std::move(terms), relation, constant, priority};
}

}  // namespace

TEST(LayoutSolverTest, SolvesWhatIsRequired) {
  const std::vector<LayoutEquation> equations{equation({{0, 1}, {1, -1}}, kEqual, 8), equation({{1, 2}}, kEqual, 20)};
  const LayoutSolution solution = solveLayout(3, equations);
  EXPECT_EQ(solution.values, (std::vector<double>{18, 10, 0})) << "A variable that nothing determines is 0.";
  EXPECT_TRUE(solution.broken.empty());
}

TEST(LayoutSolverTest, AVariableThatIsNamedTwiceCountsTwice) {
  EXPECT_EQ(solveLayout(1, std::vector{equation({{0, 1}, {0, 1}}, kEqual, 12)}).values.at(0), 6);
  EXPECT_EQ(
      solveLayout(1, std::vector{equation({{0, 1}, {0, -1}}, kEqual, 0), equation({{0, 1}}, kEqual, 3)}).values.at(0),
      3);
}

TEST(LayoutSolverTest, InequalitiesHoldAndAreAsTightAsWished) {
  const std::vector<LayoutEquation> equations{equation({{0, 1}}, kAtLeast, 10), equation({{0, 1}}, kAtMost, 30),
                                              equation({{0, 1}}, kEqual, 50, 250)};
  EXPECT_DOUBLE_EQ(solveLayout(1, equations).values[0], 30);
  const std::vector<LayoutEquation> low{equations[0], equations[1], equation({{0, 1}}, kEqual, 0, 1)};
  EXPECT_DOUBLE_EQ(solveLayout(1, low).values[0], 10);
}

TEST(LayoutSolverTest, AHigherPriorityIsNotGivenUpForAnyNumberOfLowerOnes) {
  std::vector<LayoutEquation> equations{equation({{0, 1}}, kEqual, 1, 251)};
  for (int count = 0; count < 60; ++count) equations.push_back(equation({{0, 1}}, kEqual, 1000, 250));
  EXPECT_DOUBLE_EQ(solveLayout(1, equations).values[0], 1);
  equations[0].priority = 249;
  EXPECT_DOUBLE_EQ(solveLayout(1, equations).values[0], 1000);
}

TEST(LayoutSolverTest, ALevelThatCannotHoldIsAsNearAsItGetsBeforeTheNextIsAsked) {
  const std::vector<LayoutEquation> equations{
      equation({{0, 1}, {1, 1}}, kEqual, 100),
      equation({{0, 1}}, kAtLeast, 80, 750),
      equation({{1, 1}}, kAtLeast, 80, 749),
      equation({{0, 1}}, kEqual, 90, 250),
  };
  const LayoutSolution solution = solveLayout(2, equations);
  EXPECT_DOUBLE_EQ(solution.values[0], 80);
  EXPECT_DOUBLE_EQ(solution.values[1], 20);
}

TEST(LayoutSolverTest, OfEquationsThatContradictEachOtherALaterOneIsBroken) {
  const std::vector<LayoutEquation> equations{equation({{0, 1}}, kEqual, 10), equation({{0, 1}}, kEqual, 20),
                                              equation({{1, 1}}, kEqual, 5)};
  const LayoutSolution solution = solveLayout(2, equations);
  EXPECT_EQ(solution.broken, std::vector<std::size_t>{1});
  EXPECT_EQ(solution.values, (std::vector<double>{10, 5}));
}

TEST(LayoutSolverTest, InequalitiesThatContradictEachOtherAreBrokenAndTheRestHolds) {
  const std::vector<LayoutEquation> equations{
      equation({{0, 1}}, kAtLeast, 100),
      equation({{1, 1}, {0, -1}}, kEqual, 1),
      equation({{0, 1}}, kAtMost, 50),
      equation({{1, 1}}, kEqual, 0, 250),
  };
  const LayoutSolution solution = solveLayout(2, equations);
  EXPECT_EQ(solution.broken, std::vector<std::size_t>{2});
  EXPECT_DOUBLE_EQ(solution.values[0], 100);
  EXPECT_DOUBLE_EQ(solution.values[1], 101);
}

TEST(LayoutSolverTest, WhatHasNoVariablesIsBrokenWhenItDoesNotHold) {
  EXPECT_EQ(solveLayout(0, std::vector{equation({}, kEqual, 3), equation({}, kAtMost, 3), equation({}, kAtLeast, 3),
                                       equation({}, kEqual, 3, 999)})
                .broken,
            (std::vector<std::size_t>{0, 2}));
}

TEST(LayoutSolverTest, TheConflictOfABrokenEquationIsNamedWithoutBystanders) {
  const std::vector<LayoutEquation> equations{
      equation({{0, 1}}, kEqual, 10),          equation({{2, 1}}, kEqual, 7),   equation({{1, 1}, {0, -1}}, kEqual, 5),
      equation({{3, 1}, {2, 1}}, kAtMost, 30), equation({{1, 1}}, kAtMost, 12),
  };
  const LayoutSolution solution = solveLayout(4, equations);
  ASSERT_EQ(solution.broken, std::vector<std::size_t>{4});
  EXPECT_EQ(layoutConflict(4, equations, 4), (std::vector<std::size_t>{0, 2, 4}));
}

TEST(LayoutSolverTest, SolvesLongChains) {
  std::vector<LayoutEquation> equations{equation({{0, 1}}, kEqual, 0)};
  constexpr int count = 400;
  for (int at = 1; at < count; ++at) {
    equations.push_back(equation({{at, 1}, {at - 1, -1}}, kAtLeast, 2));
    equations.push_back(equation({{at, 1}}, kEqual, 0, 250));
  }
  const LayoutSolution solution = solveLayout(count, equations);
  for (int at = 0; at < count; ++at) ASSERT_NEAR(solution.values[static_cast<std::size_t>(at)], 2 * at, 1e-6);
}

// Against the best of all points in which the equations cross.
TEST(LayoutSolverTest, NoPointIsBetterThanTheSolution) {
  std::mt19937 random(20);
  const auto upTo = [&random](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
  int contradictions = 0;
  for (int round = 0; round < 500; ++round) {
    SCOPED_TRACE(round);
    const int variableCount = 1 + upTo(2);
    std::vector<LayoutEquation> equations;
    const int count = 1 + upTo(6);
    for (int number = 0; number < count; ++number) {
      LayoutEquation made;
      for (int term = 0; term <= upTo(2); ++term) {
        made.terms.push_back(
            {upTo(variableCount - 1), std::array{1.0, -1.0, 1.0, 0.5, 2.0}[static_cast<std::size_t>(upTo(4))]});
      }
      made.relation = std::array{kAtMost, kEqual, kAtLeast}[static_cast<std::size_t>(upTo(2))];
      made.constant = upTo(40) - 20;
      made.priority = std::array{kRequired, 750.0, 251.0, 250.0}[static_cast<std::size_t>(upTo(3))];
      equations.push_back(std::move(made));
    }
    // So that there is always a point where equations cross.
    for (int variable = 0; variable < variableCount; ++variable) {
      equations.push_back(equation({{variable, 1}}, kEqual, 0, 1));
    }
    const LayoutSolution solution = solveLayout(variableCount, equations);
    Errors best = bestErrors(variableCount, equations);
    if (best[kRequired] > 1e-6) {
      ++contradictions;
      EXPECT_FALSE(solution.broken.empty());
      std::vector<LayoutEquation> rest;
      for (std::size_t number = 0; number < equations.size(); ++number) {
        if (!std::binary_search(solution.broken.begin(), solution.broken.end(), number))
          rest.push_back(equations[number]);
      }
      equations = rest;
      best = bestErrors(variableCount, equations);
    } else {
      EXPECT_TRUE(solution.broken.empty());
    }
    Errors errors = errorsOf(equations, solution.values);
    for (const auto& [priority, sum] : best) ASSERT_NEAR(errors[priority], sum, 1e-6) << priority;
  }
  EXPECT_GT(contradictions, 20);
}
