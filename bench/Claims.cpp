#include "Claims.hpp"

#include <cmath>
#include <cstdio>
#include <limits>
#include <utility>

namespace bench {
namespace {

constexpr double kFar = 2;

std::string written(const char* format, double one, double other = 0) {
  char text[64];
  std::snprintf(text, sizeof text, format, one, other);
  return text;
}

}  // namespace

void Claims::ratio(std::string name, std::string kind, double numerator, double denominator, Bound bound) {
  const bool isMeasured = numerator > 0 && denominator > 0 && std::isfinite(numerator) && std::isfinite(denominator);
  const double value = isMeasured ? numerator / denominator : std::numeric_limits<double>::quiet_NaN();
  claims_.push_back({std::move(name), std::move(kind), value, bound, ""});
}

void Claims::time(std::string name, std::string kind, double milliseconds, double goal) {
  ratio(std::move(name), std::move(kind), milliseconds, goal, atMost(1));
  claims_.back().measured = written(": %.1f ms, goal %.0f ms", milliseconds, goal);
}

Claims::Outcome Claims::outcomeOf(const Claim& claim) {
  if (std::isnan(claim.value)) return Outcome::kMissedByFar;
  const double miss =
      claim.bound.side == Bound::Side::kAtLeast ? claim.bound.value / claim.value : claim.value / claim.bound.value;
  if (miss >= kFar) return Outcome::kMissedByFar;
  return miss > 1 ? Outcome::kMissed : Outcome::kKept;
}

int Claims::report(std::ostream& out) const {
  int status = 0;
  for (const Claim& claim : claims_) {
    out << claim.name << ": " << claim.kind << written(" %.2f", claim.value)
        << (claim.bound.side == Bound::Side::kAtLeast ? " (at least " : " (at most ")
        << written("%g)", claim.bound.value) << claim.measured;
    const Outcome outcome = outcomeOf(claim);
    if (outcome == Outcome::kMissed) out << ", missed";
    if (outcome == Outcome::kMissedByFar) {
      out << ", MISSED BY FAR";
      status = 1;
    }
    out << '\n';
  }
  out.flush();
  return status;
}

}  // namespace bench
