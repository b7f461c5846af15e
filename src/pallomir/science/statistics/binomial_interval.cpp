#include "pallomir/science/statistics/binomial_interval.h"

#include <cmath>

#include "pallomir/science/statistics/log_gamma.h"

namespace pallomir {

namespace {

constexpr double kTail = 0.025;

/// The continued fraction of the incomplete beta function (Abramowitz and Stegun 1964, 26.5.8), evaluated with Lentz's
/// algorithm (1976). It converges fast for x below a / (a + b), within about sqrt(a + b) steps at worst.
double BetaFraction(double x, double a, double b) {
  constexpr double tiny = 1e-300;
  constexpr int most = 100'000;
  const auto away = [](double value) { return std::abs(value) < tiny ? tiny : value; };
  double c = 1, d = 1 / away(1 - (a + b) * x / (a + 1)), fraction = d;
  for (int m = 1; m < most; ++m) {
    const double even = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m));
    d = 1 / away(1 + even * d);
    c = away(1 + even / c);
    fraction *= d * c;
    const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1));
    d = 1 / away(1 + odd * d);
    c = away(1 + odd / c);
    fraction *= d * c;
    if (std::abs(d * c - 1) < 1e-15) break;
  }
  return fraction;
}

/// The cumulative distribution function of Beta(a, b) at x.
double BetaProbability(double x, double a, double b) {
  if (x <= 0) return 0;
  if (x >= 1) return 1;
  const double front = std::exp(LogGamma(a + b) - LogGamma(a) - LogGamma(b) + a * std::log(x) + b * std::log1p(-x));
  if (x < (a + 1) / (a + b + 2)) return front * BetaFraction(x, a, b) / a;
  return 1 - front * BetaFraction(1 - x, b, a) / b;
}

/// The p quantile of Beta(a, b), by bisection.
double BetaQuantile(double p, double a, double b) {
  double low = 0, high = 1;
  for (;;) {
    const double middle = low + (high - low) / 2;
    if (middle <= low || middle >= high) return middle;
    (BetaProbability(middle, a, b) < p ? low : high) = middle;
  }
}

}  // namespace

Interval BinomialInterval(int64_t hits, int64_t trials) {
  const auto seen = static_cast<double>(hits), missed = static_cast<double>(trials - hits);
  return {hits > 0 ? BetaQuantile(kTail, seen, missed + 1) : 0,
          hits < trials ? BetaQuantile(1 - kTail, seen + 1, missed) : 1};
}

}  // namespace pallomir
