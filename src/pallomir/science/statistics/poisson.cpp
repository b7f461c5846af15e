#include "pallomir/science/statistics/poisson.h"

#include <algorithm>
#include <cmath>

#include "pallomir/science/statistics/log_gamma.h"

namespace pallomir {

namespace {

double Probability(double count, double mean) {
  return std::exp(count * std::log(mean) - mean - LogGamma(count + 1));
}

/// The probability of `count` or less. The sum runs outwards from `count`, on the side where its terms decrease.
double AtMost(double count, double mean) {
  if (count < 0) return 0;
  if (mean <= 0) return 1;
  constexpr double small = 1e-17;
  double sum = 0;
  if (count < mean) {
    for (double term = Probability(count, mean), k = count; k >= 0 && term > small * sum; term *= k-- / mean)
      sum += term;
    return sum;
  }
  for (double k = count + 1, term = Probability(k, mean); term > small * (1 - sum) && term > 0; term *= mean / ++k)
    sum += term;
  return 1 - sum;
}

}  // namespace

int64_t PoissonQuantile(double p, double mean) {
  // Steps from a first guess, which the normal distribution gives.
  double count = std::max(0.0, std::floor(mean + (p < 0.5 ? -2.6 : 2.6) * std::sqrt(std::max(mean, 0.0))));
  while (AtMost(count, mean) < p) ++count;
  while (count > 0 && AtMost(count - 1, mean) >= p) --count;
  return static_cast<int64_t>(count);
}

double PoissonExcess(int64_t count, double mean) {
  if (mean <= 0) return count == 0 ? 0.5 : 0;
  const auto c = static_cast<double>(count);
  return 1 - AtMost(c, mean) + Probability(c, mean) / 2;
}

}  // namespace pallomir
