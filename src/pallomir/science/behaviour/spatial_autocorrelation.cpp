#include "pallomir/science/behaviour/spatial_autocorrelation.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr double kRounding = 1e-12;
/// Below this share of the sum of squares, a variance computed as a difference of sums has lost too much precision.
constexpr double kPlainVariance = 1e-3;

/// Bins that are summed at once.
constexpr size_t kLanes = 4;

/// The map as factors of the sums; bins without a value are 0 in all of them, and so are kLanes more after each row.
struct Factors {
  int Columns, Rows;
  size_t Stride;
  std::vector<double> One, Value, Square;  ///< 1, v and v * v; v is scaled to about 1 and has mean 0
};

/// Offset and scale don't change a correlation, so v is taken relative to the largest value and to the mean.
Factors FactorsOf(const Map& map) {
  const size_t stride = static_cast<size_t>(map.Columns) + kLanes, size = stride * map.Rows + kLanes;
  Factors factors{
      map.Columns, map.Rows, stride, std::vector<double>(size), std::vector<double>(size), std::vector<double>(size)};
  double largest = 0, sum = 0, count = 0;
  for (const double value : map.Values)
    if (std::isfinite(value)) largest = std::max(largest, std::abs(value));
  const auto relative = [largest](double value) { return largest > 0 ? value / largest : 0; };
  for (const double value : map.Values)
    if (std::isfinite(value)) sum += relative(value), ++count;
  for (int row = 0; row < map.Rows; ++row)
    for (int column = 0; column < map.Columns; ++column) {
      const double value = map.At(row, column);
      if (!std::isfinite(value)) continue;
      const size_t bin = stride * row + column;
      factors.One[bin] = 1;
      factors.Value[bin] = relative(value) - sum / count;
      factors.Square[bin] = factors.Value[bin] * factors.Value[bin];
    }
  return factors;
}

/// Sums over the overlap of a copy (A) and the shifted copy (B).
struct OverlapSums {
  double N = 0, A = 0, B = 0, AA = 0, BB = 0, AB = 0;
};

PALLOMIR_HOT_PART void Load(FourDoubles& lanes, const std::vector<double>& values, size_t index) {
  std::memcpy(&lanes, &values[index], sizeof lanes);
}

PALLOMIR_HOT_PART double Total(const FourDoubles& lanes) {
  return lanes[0] + lanes[1] + lanes[2] + lanes[3];
}

/// The last lanes of a row that lie beyond the overlap are 0 in the copy that they lie outside of.
PALLOMIR_HOT_LOOP
OverlapSums SumOverlap(const Factors& factors, int rowLag, int columnLag) {
  const auto width = static_cast<size_t>(factors.Columns - std::abs(columnLag));
  const auto right = static_cast<size_t>(std::max(columnLag, 0)), left = static_cast<size_t>(std::max(-columnLag, 0));
  FourDoubles n{}, a{}, b{}, aa{}, bb{}, ab{};
  for (int row = 0; row + rowLag < factors.Rows; ++row) {
    const size_t own = factors.Stride * row + left, other = factors.Stride * (row + rowLag) + right;
    for (size_t c = 0; c < width; c += kLanes) {
      FourDoubles oneA, oneB, valueA, valueB, squareA, squareB;
      Load(oneA, factors.One, own + c), Load(oneB, factors.One, other + c);
      Load(valueA, factors.Value, own + c), Load(valueB, factors.Value, other + c);
      Load(squareA, factors.Square, own + c), Load(squareB, factors.Square, other + c);
      n += oneA * oneB;
      a += valueA * oneB;
      b += oneA * valueB;
      aa += squareA * oneB;
      bb += oneA * squareB;
      ab += valueA * valueB;
    }
  }
  return {Total(n), Total(a), Total(b), Total(aa), Total(bb), Total(ab)};
}

/// Calls use(a, b) with the values of each pair of bins that overlap at a lag.
template <class Use>
void ForOverlap(const Factors& factors, int rowLag, int columnLag, Use use) {
  for (int row = 0; row + rowLag < factors.Rows; ++row)
    for (int c = std::max(0, -columnLag); c < std::min(factors.Columns, factors.Columns - columnLag); ++c) {
      const size_t a = factors.Stride * row + c;
      const size_t b = factors.Stride * (row + rowLag) + c + columnLag;
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

double Correlation(const Factors& factors, int rowLag, int columnLag) {
  const OverlapSums s = SumOverlap(factors, rowLag, columnLag);
  if (s.N < kFewestOverlapping) return kNotKnown;
  const double varianceA = s.N * s.AA - s.A * s.A;
  const double varianceB = s.N * s.BB - s.B * s.B;
  const bool plain = varianceA > kPlainVariance * s.N * s.AA && varianceB > kPlainVariance * s.N * s.BB &&
                     s.AA > kPlainVariance && s.BB > kPlainVariance;
  if (!plain) return CarefulCorrelation(factors, rowLag, columnLag);
  return std::clamp((s.N * s.AB - s.A * s.B) / std::sqrt(varianceA * varianceB), -1.0, 1.0);
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
    for (int columnLag = 1 - map.Columns; columnLag < map.Columns; ++columnLag) {
      progress.Reached(static_cast<double>(rowLag) / map.Rows);
      const double r = Correlation(factors, rowLag, columnLag);
      lags.Values[lags.Index(map.Rows - 1 + rowLag, map.Columns - 1 + columnLag)] = r;
      lags.Values[lags.Index(map.Rows - 1 - rowLag, map.Columns - 1 - columnLag)] = r;
    }
  }
  return lags;
}

}  // namespace pallomir
