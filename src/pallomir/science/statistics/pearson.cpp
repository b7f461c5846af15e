#include "pallomir/science/statistics/pearson.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "pallomir/science/times.h"

namespace pallomir {

namespace {

constexpr double kRounding = 1e-12;

/// What the values of one side span.
struct Side {
  double Sum = 0;
  double Low = std::numeric_limits<double>::infinity(), High = -std::numeric_limits<double>::infinity();

  void Add(double value) {
    Sum += value;
    Low = std::min(Low, value);
    High = std::max(High, value);
  }
  bool Varies() const { return High - Low > kRounding * std::max(std::abs(Low), std::abs(High)); }
};

template <class Use>
void ForPairs(std::span<const double> one, std::span<const double> other, Use use) {
  for (size_t i = 0; i < one.size(); ++i)
    if (std::isfinite(one[i]) && std::isfinite(other[i])) use(one[i], other[i]);
}

}  // namespace

double PearsonOf(std::span<const double> one, std::span<const double> other) {
  Side a, b;
  double pairs = 0;
  ForPairs(one, other, [&](double x, double y) { ++pairs, a.Add(x), b.Add(y); });
  if (pairs < kFewestPairs || !a.Varies() || !b.Varies()) return kNotKnown;
  double aa = 0, bb = 0, ab = 0;
  ForPairs(one, other, [&](double x, double y) {
    const double fromA = x - a.Sum / pairs, fromB = y - b.Sum / pairs;
    aa += fromA * fromA, bb += fromB * fromB, ab += fromA * fromB;
  });
  return std::clamp(ab / std::sqrt(aa * bb), -1.0, 1.0);
}

}  // namespace pallomir
