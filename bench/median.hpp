// The middle of several measurements, which a few slow ones do not move. Shared by the benchmark programs.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace bench {

/// `values` must not be empty; of an even number the upper of the two in the middle.
inline double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace bench
