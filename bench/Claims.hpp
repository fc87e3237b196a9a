// What a benchmark program claims: ratios with their bounds, the lines that it closes with, and its exit status. Plain
// C++, shared by the benchmark programs.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace bench {

/// The side on which a ratio is good, and how far it may go to the other.
struct Bound {
  enum class Side { kAtLeast, kAtMost };
  Side side;
  double value;  ///< Above 0.
};

constexpr Bound atLeast(double value) { return {Bound::Side::kAtLeast, value}; }
constexpr Bound atMost(double value) { return {Bound::Side::kAtMost, value}; }

/// For the ratio of the times for twice as much: 2 when they are linear, and a quarter more for noise and caches.
constexpr double kLinear = 2.5;

/// The claims of one program, in the order in which they were made.
class Claims final {
 public:
  /// Claims that `numerator / denominator`, which `kind` ("kernel/read") names, keeps `bound`. Both are measurements
  /// above 0 in the same unit; with any other the claim counts as missed by far.
  void ratio(std::string name, std::string kind, double numerator, double denominator, Bound bound);

  /// Claims that something takes at most `goal` milliseconds. The line gives both, and the ratio as `kind`.
  void time(std::string name, std::string kind, double milliseconds, double goal);

  /// Writes a line for each claim, "NAME: KIND RATIO (at least BOUND)" or "(at most BOUND)", followed by what was
  /// measured where it is a time, and by ", missed" or ", MISSED BY FAR".
  ///
  /// Returns the program's exit status: 1 when a claim misses its bound by a factor of two or more, 0 otherwise. Twice,
  /// because timings on a busy machine are a good deal off.
  [[nodiscard]] int report(std::ostream& out) const;

 private:
  enum class Outcome { kKept, kMissed, kMissedByFar };

  struct Claim {
    std::string name;
    std::string kind;
    double value;
    Bound bound;
    std::string measured;  ///< Empty, or what follows the bound.
  };

  static Outcome outcomeOf(const Claim& claim);

  std::vector<Claim> claims_;
};

}  // namespace bench
