#pragma once

#include <numeric>
#include <span>

namespace pallomir {

/// The slope of the least-squares line through points of at least two different x.
inline double SlopeOf(std::span<const double> x, std::span<const double> y) {
  const auto count = static_cast<double>(x.size());
  const double meanX = std::accumulate(x.begin(), x.end(), 0.0) / count;
  const double meanY = std::accumulate(y.begin(), y.end(), 0.0) / count;
  double xx = 0, xy = 0;
  for (size_t i = 0; i < x.size(); ++i) {
    xx += (x[i] - meanX) * (x[i] - meanX);
    xy += (x[i] - meanX) * (y[i] - meanY);
  }
  return xy / xx;
}

}  // namespace pallomir
