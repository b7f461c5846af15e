#pragma once

#include <cmath>

namespace pallomir {

/// For positive x only, where the sign that lgamma() leaves in a global is not needed.
inline double LogGamma(double x) {
  return std::lgamma(x);  // NOLINT(concurrency-mt-unsafe)
}

}  // namespace pallomir
