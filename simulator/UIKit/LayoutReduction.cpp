#include "LayoutReduction.hpp"

#include <UIKit/LayoutTableau.hpp>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace sim {
namespace {

/// Puts values in for what is known, again and again.
class Reducer final {
 public:
  Reducer(int variableCount, std::span<const LayoutEquation> equations)
      : equations_(equations),
        unknownTerms_(equations.size()),
        firstMention_(static_cast<std::size_t>(variableCount) + 1, 0) {
    reduction_.known.resize(static_cast<std::size_t>(variableCount));
    for (const LayoutEquation& equation : equations) {
      for (const LayoutTerm& term : equation.terms) ++firstMention_[term.variable];
    }
    std::partial_sum(firstMention_.begin(), firstMention_.end(), firstMention_.begin());
    mentions_.resize(firstMention_.back());
    for (std::size_t number = 0; number < equations.size(); ++number) {
      for (const LayoutTerm& term : equations[number].terms) mentions_[--firstMention_[term.variable]] = number;
      unknownTerms_[number] = equations[number].terms.size();
      lookAt(number);
    }
  }

  LayoutReduction run() && {
    while (!determining_.empty() && !reduction_.contradicts) {
      const std::size_t number = determining_.back();
      determining_.pop_back();
      if (unknownTerms_[number] > 0) determineBy(number);
    }
    if (!reduction_.contradicts) keepTheRest();
    return std::move(reduction_);
  }

 private:
  /// What is left of the constant when the known terms are taken from it.
  double restOf(const LayoutEquation& equation) const {
    double rest = equation.constant;
    for (const LayoutTerm& term : equation.terms) {
      if (const auto& value = reduction_.known[term.variable]) rest -= term.coefficient * *value;
    }
    return rest;
  }

  void lookAt(std::size_t number) {
    const LayoutEquation& equation = equations_[number];
    if (equation.priority < kRequiredLayoutPriority) return;
    if (unknownTerms_[number] == 0) {
      if (!holdsWithoutTerms({{}, equation.relation, restOf(equation)})) reduction_.contradicts = true;
    } else if (unknownTerms_[number] == 1 && equation.relation == LayoutRelation::kEqual) {
      determining_.push_back(number);
    }
  }

  void determineBy(std::size_t number) {
    const LayoutEquation& equation = equations_[number];
    const auto unknown = std::find_if(equation.terms.begin(), equation.terms.end(),
                                      [this](const LayoutTerm& term) { return !reduction_.known[term.variable]; });
    if (std::abs(unknown->coefficient) <= kLayoutZero) return;
    const int variable = unknown->variable;
    reduction_.known[variable] = restOf(equation) / unknown->coefficient + 0.0;  // Never -0.
    for (std::size_t at = firstMention_[variable]; at < firstMention_[variable + 1]; ++at) {
      --unknownTerms_[mentions_[at]];
      lookAt(mentions_[at]);
    }
  }

  void keepTheRest() {
    for (std::size_t number = 0; number < equations_.size(); ++number) {
      if (unknownTerms_[number] == 0) continue;
      const LayoutEquation& equation = equations_[number];
      LayoutEquation kept{{}, equation.relation, restOf(equation), equation.priority};
      kept.terms.reserve(unknownTerms_[number]);
      for (const LayoutTerm& term : equation.terms) {
        if (!reduction_.known[term.variable]) kept.terms.push_back(term);
      }
      reduction_.equations.push_back(std::move(kept));
    }
  }

  std::span<const LayoutEquation> equations_;
  std::vector<std::size_t> unknownTerms_;  ///< By equation.
  std::vector<std::size_t> firstMention_;  ///< By variable: where in `mentions_` its equations begin.
  std::vector<std::size_t> mentions_;
  std::vector<std::size_t> determining_;  ///< Equations with one unknown, which they determine.
  LayoutReduction reduction_;
};

}  // namespace

bool holdsWithoutTerms(const LayoutEquation& equation) {
  switch (equation.relation) {
    case LayoutRelation::kAtMost: return equation.constant >= -kLayoutTolerance;
    case LayoutRelation::kEqual: return std::abs(equation.constant) <= kLayoutTolerance;
    case LayoutRelation::kAtLeast: return equation.constant <= kLayoutTolerance;
  }
  return true;
}

LayoutReduction reduceLayout(int variableCount, std::span<const LayoutEquation> equations) {
  return Reducer(variableCount, equations).run();
}

}  // namespace sim
