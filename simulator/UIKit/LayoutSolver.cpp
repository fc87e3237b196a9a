#include "LayoutSolver.hpp"

#include <UIKit/LayoutReduction.hpp>
#include <UIKit/LayoutTableau.hpp>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace sim {
namespace {

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
    LayoutTableau tableau(piece.variableCount);
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

/// Piece by piece. `equations` have no terms of what is known already, whose values are left alone.
void solvePieces(std::span<const LayoutEquation> equations, LayoutSolution& solution) {
  std::vector<int> local;
  std::vector<int> pieceOf;
  const int variableCount = static_cast<int>(solution.values.size());
  const std::vector<Piece> pieces = piecesOf(variableCount, equations, local, pieceOf);
  std::vector<std::vector<double>> values(pieces.size());
  for (std::size_t at = 0; at < pieces.size(); ++at) {
    if (pieces[at].equations.empty()) continue;
    values[at] = solvePiece(pieces[at], equations, local, solution.broken);
  }
  for (int variable = 0; variable < variableCount; ++variable) {
    const std::vector<double>& own = values[pieceOf[variable]];
    if (!own.empty()) solution.values[variable] = own[local[variable]];
  }
}

}  // namespace

LayoutSolution solveLayout(int variableCount, std::span<const LayoutEquation> equations) {
  const LayoutReduction reduction = reduceLayout(variableCount, equations);
  LayoutSolution solution;
  solution.values.assign(static_cast<std::size_t>(variableCount), 0);
  if (!reduction.contradicts) {
    solvePieces(reduction.equations, solution);
    for (int variable = 0; variable < variableCount; ++variable) {
      if (reduction.known[variable]) solution.values[variable] = *reduction.known[variable];
    }
    if (solution.broken.empty()) return solution;
  }
  // Which one is to be broken is told from all of them, in their order.
  solution.broken.clear();
  solution.values.assign(static_cast<std::size_t>(variableCount), 0);
  for (std::size_t number = 0; number < equations.size(); ++number) {
    const LayoutEquation& equation = equations[number];
    if (equation.terms.empty() && equation.priority >= kRequiredLayoutPriority && !holdsWithoutTerms(equation)) {
      solution.broken.push_back(number);
    }
  }
  solvePieces(equations, solution);
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
  // Ever smaller groups that the contradiction does without, until it does without none.
  for (std::size_t size = std::max<std::size_t>(conflict.size() / 2, 1); size > 0; size /= 2) {
    for (std::size_t at = 0; at < conflict.size();) {
      std::vector<std::size_t> fewer;
      for (std::size_t other = 0; other < conflict.size(); ++other) {
        const bool isInGroup = other >= at && other < at + size && conflict[other] != broken;
        if (!isInGroup) fewer.push_back(conflict[other]);
      }
      if (fewer.size() < conflict.size() && !canHold(fewer)) conflict = std::move(fewer);
      else at += size;
    }
  }
  return conflict;
}

}  // namespace sim
