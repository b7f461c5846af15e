#include "pallomir/science/statistics/chi_square.h"

#include <cmath>
#include <numbers>

namespace pallomir {

double ChiSquareSurvival(double x, int degrees) {
  if (x <= 0) return 1;
  const double half = x / 2;
  // Multiply twice by the square root of exp(-half): exp(-half) itself may underflow while the sum is large.
  const double root = std::exp(-half / 2);
  if (root == 0) return 0;
  const bool even = degrees % 2 == 0;
  // The terms half^a / Gamma(a + 1) for a = 0, 1, ... or a = 1/2, 3/2, ... below degrees / 2.
  double power = even ? 0 : 0.5;
  double term = even ? 1 : std::sqrt(half) * 2 * std::numbers::inv_sqrtpi;
  double sum = 0;
  while (power < degrees / 2.0) {
    sum += term;
    term *= half / (power += 1);
  }
  return root * sum * root + (even ? 0 : std::erfc(std::sqrt(half)));
}

}  // namespace pallomir
