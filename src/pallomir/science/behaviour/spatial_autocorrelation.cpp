#include "pallomir/science/behaviour/spatial_autocorrelation.h"

#include <algorithm>
#include <cmath>

#include "pallomir/science/statistics/add_scaled.h"

namespace pallomir {

namespace {

constexpr double kRounding = 1e-12;
/// Below this share of the sum of squares, a variance computed as a difference of sums has lost too much precision.
constexpr double kPlainVariance = 1e-3;

/// The map as factors of the sums; bins without a value are 0 in all of them.
struct Factors {
  int Columns, Rows;
  std::vector<double> One, Value, Square;  ///< 1, v and v * v; v is scaled to about 1 and has mean 0
};

/// Offset and scale don't change a correlation, so v is taken relative to the largest value and to the mean.
Factors FactorsOf(const Map& map) {
  const size_t bins = map.Values.size();
  Factors factors{map.Columns, map.Rows, std::vector<double>(bins), std::vector<double>(bins),
                  std::vector<double>(bins)};
  double largest = 0, sum = 0, count = 0;
  for (const double value : map.Values)
    if (std::isfinite(value)) largest = std::max(largest, std::abs(value));
  const auto relative = [largest](double value) { return largest > 0 ? value / largest : 0; };
  for (const double value : map.Values)
    if (std::isfinite(value)) sum += relative(value), ++count;
  for (size_t i = 0; i < bins; ++i) {
    if (!std::isfinite(map.Values[i])) continue;
    factors.One[i] = 1;
    factors.Value[i] = relative(map.Values[i]) - sum / count;
    factors.Square[i] = factors.Value[i] * factors.Value[i];
  }
  return factors;
}

/// Sums over the overlap of a copy (A) and the shifted copy (B), for all lags along x, lag 0 in the middle.
struct LagSums {
  std::vector<double> N, A, B, AA, BB, AB;
  explicit LagSums(size_t lags) : N(lags), A(lags), B(lags), AA(lags), BB(lags), AB(lags) {}
};

/// Adds row `row` against row `other`: bin c against bin c + lag, for all lags within the row.
void AddRows(const Factors& factors, int row, int other, LagSums& sums) {
  const auto columns = static_cast<size_t>(factors.Columns);
  const double* one = &factors.One[columns * other];
  const double* value = &factors.Value[columns * other];
  const double* square = &factors.Square[columns * other];
  for (size_t c = 0; c < columns; ++c) {
    const size_t bin = columns * row + c;
    if (factors.One[bin] == 0) continue;
    const size_t lag = columns - 1 - c;  // index of the lag of the other row's bin 0
    AddScaled(one, 1, &sums.N[lag], columns);
    AddScaled(one, factors.Value[bin], &sums.A[lag], columns);
    AddScaled(one, factors.Square[bin], &sums.AA[lag], columns);
    AddScaled(value, 1, &sums.B[lag], columns);
    AddScaled(square, 1, &sums.BB[lag], columns);
    AddScaled(value, factors.Value[bin], &sums.AB[lag], columns);
  }
}

/// Calls use(a, b) with the values of each pair of bins that overlap at a lag.
template <class Use>
void ForOverlap(const Factors& factors, int rowLag, int columnLag, Use use) {
  for (int row = 0; row + rowLag < factors.Rows; ++row)
    for (int c = std::max(0, -columnLag); c < std::min(factors.Columns, factors.Columns - columnLag); ++c) {
      const size_t a = static_cast<size_t>(row) * factors.Columns + c;
      const size_t b = static_cast<size_t>(row + rowLag) * factors.Columns + c + columnLag;
      if (factors.One[a] != 0 && factors.One[b] != 0) use(factors.Value[a], factors.Value[b]);
    }
}

/// Two passes over the bins, for the few lags at which a single pass loses precision.
double CarefulCorrelation(const Factors& factors, int rowLag, int columnLag) {
  double n = 0, sumA = 0, sumB = 0, lowA = 1e9, lowB = 1e9, highA = -1e9, highB = -1e9;
  ForOverlap(factors, rowLag, columnLag, [&](double a, double b) {
    ++n, sumA += a, sumB += b;
    lowA = std::min(lowA, a), highA = std::max(highA, a);
    lowB = std::min(lowB, b), highB = std::max(highB, b);
  });
  if (highA - lowA <= kRounding || highB - lowB <= kRounding) return kNotKnown;
  double aa = 0, bb = 0, ab = 0;
  ForOverlap(factors, rowLag, columnLag, [&](double a, double b) {
    const double fromA = a - sumA / n, fromB = b - sumB / n;
    aa += fromA * fromA, bb += fromB * fromB, ab += fromA * fromB;
  });
  return std::clamp(ab / std::sqrt(aa * bb), -1.0, 1.0);
}

double Correlation(const Factors& factors, const LagSums& sums, int rowLag, int columnLag) {
  const auto k = static_cast<size_t>(columnLag + factors.Columns - 1);
  const double n = sums.N[k];
  if (n < kFewestOverlapping) return kNotKnown;
  const double varianceA = n * sums.AA[k] - sums.A[k] * sums.A[k];
  const double varianceB = n * sums.BB[k] - sums.B[k] * sums.B[k];
  const bool plain = varianceA > kPlainVariance * n * sums.AA[k] && varianceB > kPlainVariance * n * sums.BB[k] &&
                     sums.AA[k] > kPlainVariance && sums.BB[k] > kPlainVariance;
  if (!plain) return CarefulCorrelation(factors, rowLag, columnLag);
  const double covariance = n * sums.AB[k] - sums.A[k] * sums.B[k];
  return std::clamp(covariance / std::sqrt(varianceA * varianceB), -1.0, 1.0);
}

Map LagMap(const Map& map) {
  Map lags;
  lags.Bin = map.Bin;
  if (map.Columns == 0 || map.Rows == 0) return lags;
  lags.Columns = 2 * map.Columns - 1;
  lags.Rows = 2 * map.Rows - 1;
  lags.Left = -(map.Columns - 0.5) * map.Bin;
  lags.Top = -(map.Rows - 0.5) * map.Bin;
  lags.Values.assign(static_cast<size_t>(lags.Columns) * lags.Rows, kNotKnown);
  return lags;
}

}  // namespace

Map SpatialAutocorrelation(const Map& map, const Progress& progress) {
  Map lags = LagMap(map);
  const Factors factors = FactorsOf(map);
  for (int rowLag = 0; rowLag < map.Rows; ++rowLag) {
    LagSums sums(static_cast<size_t>(lags.Columns));
    for (int row = 0; row + rowLag < map.Rows; ++row) {
      AddRows(factors, row, row + rowLag, sums);
      progress.Reached(static_cast<double>(rowLag) / map.Rows);
    }
    for (int columnLag = 1 - map.Columns; columnLag < map.Columns; ++columnLag) {
      const double r = Correlation(factors, sums, rowLag, columnLag);
      lags.Values[lags.Index(map.Rows - 1 + rowLag, map.Columns - 1 + columnLag)] = r;
      lags.Values[lags.Index(map.Rows - 1 - rowLag, map.Columns - 1 - columnLag)] = r;
    }
  }
  return lags;
}

}  // namespace pallomir
