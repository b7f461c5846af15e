#pragma once

#include <algorithm>
#include <vector>

namespace pallomir {

/// The median of at least one value; of an even number the mean of the middle two. Reorders the values.
template <class Value>
double MedianOf(std::vector<Value>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  if (values.size() % 2 == 1) return static_cast<double>(*middle);
  return (static_cast<double>(*std::max_element(values.begin(), middle)) + static_cast<double>(*middle)) / 2;
}

}  // namespace pallomir
