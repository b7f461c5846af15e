#include "tools/sample/curves.h"

#include <cmath>

namespace pallomir {

double CosTurns(double turns) {
  constexpr double pi = 3.14159265358979323846;
  double distance = std::abs(turns - std::floor(turns) - 0.5);  // from half a turn, where the cosine is -1
  const double sign = distance > 0.25 ? 1 : -1;
  if (distance > 0.25) distance = 0.5 - distance;
  const double x = 2 * pi * distance;
  const double q = x * x;
  // Taylor series; the next term is below 1e-10 for x up to pi / 2.
  return sign * (1 - q / 2 * (1 - q / 12 * (1 - q / 30 * (1 - q / 56 * (1 - q / 90 * (1 - q / 132 * (1 - q / 182)))))));
}

}  // namespace pallomir
