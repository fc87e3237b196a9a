// What of a layout is known without any search: a width that is said as a number, an edge beside a known one. Plain
// C++; any thread.
#pragma once

#include <UIKit/LayoutSolver.hpp>

#include <optional>
#include <span>
#include <vector>

namespace sim {

/// Equations without what is known.
///
/// Most of a screen hangs together by what is fixed, such as rows of a stack view by its edges. What is left falls into
/// small pieces, so that the time to solve grows with their number and not with its square.
struct LayoutReduction {
  std::vector<std::optional<double>> known;  ///< By variable: its value in every solution.
  std::vector<LayoutEquation> equations;     ///< Those with something unknown, in their order.
  bool contradicts = false;                  ///< A required equation does not hold; the rest is then not filled.
};

/// Of an equation without terms.
[[nodiscard]] bool holdsWithoutTerms(const LayoutEquation& equation);

/// Takes time in proportion to the number of terms.
[[nodiscard]] LayoutReduction reduceLayout(int variableCount, std::span<const LayoutEquation> equations);

}  // namespace sim
