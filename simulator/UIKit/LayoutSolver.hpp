// What lengths and places constraints ask for. Plain C++, points; knows nothing of views.
//
// A system is a linear program of levels: what is required holds exactly, and of what is only wished, the sum of the
// errors of the highest priority is made as small as it gets and held there before the next priority is looked at. So
// a constraint is never given up for any number of lower ones.
//
// Why an own simplex: a table cell of fourteen constraints and ten wishes in three priorities took 1.27 ms with
// coinor-libclp 1.17 and 1.75 ms with lp_solve 5.5 (average of 2,000, one core), nearly all of it for making the model
// and for looking at each level anew, and holding a level as one more row with a tolerance made Clp call every cell's
// next level infeasible, with lengths that were two points off. Here a level is held by leaving those unknowns out that
// would make it worse, which needs no tolerance, what does not hang together is solved apart, and the same cell takes
// some 30 µs.
#pragma once

#include <span>
#include <vector>

namespace sim {

enum class LayoutRelation { kAtMost = -1, kEqual = 0, kAtLeast = 1 };

/// The priority from which on a constraint has to hold.
constexpr double kRequiredLayoutPriority = 1000;

struct LayoutTerm {
  int variable = 0;
  double coefficient = 0;
  friend bool operator==(const LayoutTerm&, const LayoutTerm&) = default;
};

/// The sum of `terms`, which may name a variable several times, stands in `relation` to `constant`.
struct LayoutEquation {
  std::vector<LayoutTerm> terms;
  LayoutRelation relation = LayoutRelation::kEqual;
  double constant = 0;
  double priority = kRequiredLayoutPriority;
  friend bool operator==(const LayoutEquation&, const LayoutEquation&) = default;
};

struct LayoutSolution {
  std::vector<double> values;       ///< Of each variable; 0 where nothing determines it.
  std::vector<std::size_t> broken;  ///< The required equations that the others leave no room for, in ascending order.
};

/// Solves `equations` over the variables 0 to `variableCount - 1`, all finite. Of required equations that contradict
/// each other a later one is broken. The same input has the same solution.
[[nodiscard]] LayoutSolution solveLayout(int variableCount, std::span<const LayoutEquation> equations);

/// The equations that `broken`, one of the broken ones, cannot hold together with, itself among them: required ones of
/// which none can be left out. For a message; takes as many solutions as there are required equations.
[[nodiscard]] std::vector<std::size_t> layoutConflict(int variableCount, std::span<const LayoutEquation> equations,
                                                      std::size_t broken);

}  // namespace sim
