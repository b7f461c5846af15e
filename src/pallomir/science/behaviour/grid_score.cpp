#include "pallomir/science/behaviour/grid_score.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include "pallomir/science/statistics/pearson.h"

namespace pallomir {

namespace {

constexpr int kThinnestRing = 4, kMargin = 4;  // bins
constexpr double kWhole = 1e-9;
constexpr double kLowestPeak = 0.1;

/// The radius, in bins, at which the central peak of the autocorrelogram ends: the first minimum of the mean over all
/// directions.
std::optional<int> InnerRadius(const Map& map) {
  const int middleRow = map.Rows / 2, middleColumn = map.Columns / 2;
  const auto reach = static_cast<size_t>(std::lround(std::hypot(middleRow, middleColumn))) + 1;
  std::vector<double> sum(reach + 1), count(reach + 1);
  for (int row = 0; row < map.Rows; ++row)
    for (int column = 0; column < map.Columns; ++column) {
      const double value = map.At(row, column);
      if (!std::isfinite(value)) continue;
      const auto k = static_cast<size_t>(std::lround(std::hypot(row - middleRow, column - middleColumn)));
      sum[k] += value;
      ++count[k];
    }
  const auto mean = [&](size_t k) { return count[k] > 0 ? sum[k] / count[k] : kNotKnown; };
  for (size_t k = 1; k < reach; ++k)
    if (mean(k) < mean(k - 1) && mean(k) <= mean(k + 1)) return static_cast<int>(k);
  return {};
}

/// Pearson's r of pairs that come one after another. The values are between -1 and 1.
class RunningCorrelation {
 public:
  void Add(double a, double b) {
    ++pairs_;
    a_ += a, b_ += b, aa_ += a * a, bb_ += b * b, ab_ += a * b;
    lowA_ = std::min(lowA_, a), highA_ = std::max(highA_, a);
    lowB_ = std::min(lowB_, b), highB_ = std::max(highB_, b);
  }
  double Value() const {
    if (pairs_ < kFewestPairs || !Varies(lowA_, highA_) || !Varies(lowB_, highB_)) return kNotKnown;
    const double a = aa_ - a_ * a_ / pairs_, b = bb_ - b_ * b_ / pairs_;
    return (ab_ - a_ * b_ / pairs_) / std::sqrt(a * b);
  }

 private:
  static bool Varies(double low, double high) { return high - low > 1e-12 * std::max(std::abs(low), std::abs(high)); }

  double pairs_ = 0, a_ = 0, b_ = 0, aa_ = 0, bb_ = 0, ab_ = 0;
  double lowA_ = std::numeric_limits<double>::infinity(), highA_ = -lowA_;
  double lowB_ = lowA_, highB_ = -lowA_;
};

struct Peak {
  double X, Y;  ///< bins from the middle, Y downward
  double Distance() const { return std::hypot(X, Y); }
  double Angle() const { return std::atan2(-Y, X); }
};

bool IsPeak(const Map& map, int row, int column) {
  const double value = map.At(row, column);
  if (!(value > kLowestPeak)) return false;
  for (int r = row - 1; r <= row + 1; ++r)
    for (int c = column - 1; c <= column + 1; ++c)
      if (!(value >= map.At(r, c))) return false;
  return true;
}

/// The offset of the top of the parabola through three neighbours.
double Refined(double left, double middle, double right) {
  const double curvature = left + right - 2 * middle;
  return curvature == 0 ? 0 : (left - right) / (2 * curvature);
}

/// The three peaks nearest to the middle in the upper half plane; the other three are their mirror images.
std::optional<std::array<Peak, 3>> NearestPeaks(const Map& map, int inner) {
  const int middleRow = map.Rows / 2, middleColumn = map.Columns / 2;
  std::vector<Peak> peaks;
  for (int row = 1; row + 1 < map.Rows; ++row)
    for (int column = 1; column + 1 < map.Columns; ++column) {
      const int dx = column - middleColumn, dy = row - middleRow;
      if (dx * dx + dy * dy <= inner * inner || !IsPeak(map, row, column)) continue;
      const double here = map.At(row, column);
      const Peak peak = {dx + Refined(map.At(row, column - 1), here, map.At(row, column + 1)),
                         dy + Refined(map.At(row - 1, column), here, map.At(row + 1, column))};
      if (peak.Y < 0 || (peak.Y == 0 && peak.X > 0)) peaks.push_back(peak);
    }
  if (peaks.size() < 3) return {};
  std::partial_sort(peaks.begin(), peaks.begin() + 3, peaks.end(), [](const Peak& a, const Peak& b) {
    return a.Distance() != b.Distance() ? a.Distance() < b.Distance() : a.Angle() < b.Angle();
  });
  return std::array{peaks[0], peaks[1], peaks[2]};
}

double OrientationOf(const std::array<Peak, 3>& peaks) {
  constexpr double same = 1e-6;  // degrees
  double best = 180;
  for (const Peak& peak : peaks) {
    double degrees = peak.Angle() * 180 / std::numbers::pi;
    if (degrees > 90) degrees -= 180;
    if (degrees <= -90) degrees += 180;
    const double closer = std::abs(best) - std::abs(degrees);
    if (closer > same || (closer >= -same && degrees > 0 && best < 0)) best = degrees;
  }
  return best;
}

double Determinant(const std::array<std::array<double, 3>, 3>& m) {
  return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) - m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
         m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

/// Of the ellipse a x^2 + b x y + c y^2 = 1 through the peaks, by Cramer's rule.
Measured EllipticityOf(const std::array<Peak, 3>& peaks) {
  std::array<std::array<double, 3>, 3> rows{};
  for (size_t k = 0; k < 3; ++k) rows[k] = {peaks[k].X * peaks[k].X, peaks[k].X * peaks[k].Y, peaks[k].Y * peaks[k].Y};
  const double whole = Determinant(rows);
  std::array<double, 3> abc{};
  for (size_t column = 0; column < 3; ++column) {
    auto replaced = rows;
    for (auto& row : replaced) row[column] = 1;
    abc[column] = Determinant(replaced) / whole;
  }
  const auto [a, b, c] = abc;
  const double middle = (a + c) / 2, apart = std::hypot((a - c) / 2, b / 2);
  if (!(middle - apart > 0) || !std::isfinite(middle + apart)) return Measured::None("no ellipse through the peaks");
  return std::sqrt((middle + apart) / (middle - apart));
}

}  // namespace

GridAnalysis::GridAnalysis(int rows, int columns)
    : rows_(2 * rows - 1), columns_(2 * columns - 1), shorter_(std::min(rows, columns)) {
  const int reach = shorter_ - kMargin;
  if (reach <= 0) return;
  for (int dy = -reach; dy <= reach; ++dy)
    for (int dx = -reach; dx <= reach; ++dx) {
      const int squared = dx * dx + dy * dy;
      if (squared > reach * reach) continue;
      RingBin bin{squared, static_cast<uint32_t>((dy + rows - 1) * columns_ + dx + columns - 1), {}};
      for (int k = 0; k < kAngles; ++k) {
        const double angle = (k + 1) * std::numbers::pi / 6, cosine = std::cos(angle), sine = std::sin(angle);
        bin.Rotated[k] = SourceOf(sine * dx + cosine * dy + rows - 1, cosine * dx - sine * dy + columns - 1);
      }
      ring_.push_back(bin);
    }
  std::stable_sort(ring_.begin(), ring_.end(),
                   [](const RingBin& a, const RingBin& b) { return a.Squared < b.Squared; });
}

GridAnalysis::Source GridAnalysis::SourceOf(double row, double column) const {
  const auto whole = [](double x) { return std::abs(x - std::round(x)) < kWhole ? std::round(x) : x; };
  row = whole(row), column = whole(column);
  const double top = std::floor(row), left = std::floor(column);
  Source source;
  for (const int down : {0, 1})
    for (const int right : {0, 1}) {
      const double weight = (down ? row - top : 1 - (row - top)) * (right ? column - left : 1 - (column - left));
      if (!(weight > 0)) continue;
      const int r = static_cast<int>(top) + down, c = static_cast<int>(left) + right;
      if (r < 0 || r >= rows_ || c < 0 || c >= columns_) return {};
      source.Bins[source.Count] = static_cast<uint32_t>(r * columns_ + c);
      source.Weights[source.Count++] = weight;
    }
  return source;
}

double GridAnalysis::Source::In(const Map& map) const {
  double value = Count > 0 ? 0 : kNotKnown;
  for (int i = 0; i < Count; ++i) value += Weights[i] * map.Values[Bins[i]];
  return value;
}

Measured GridAnalysis::ScoreOf(const Map& autocorrelogram) const {
  const auto inner = autocorrelogram.Values.empty() ? std::nullopt : InnerRadius(autocorrelogram);
  if (!inner) return Measured::None("the autocorrelogram has no central peak");
  const int first = *inner + kThinnestRing, last = shorter_ - kMargin;
  if (first > last) return Measured::None("the map is too small beside the central peak");
  std::array<RunningCorrelation, kAngles> correlations;
  double best = kNotKnown;
  auto bin = std::find_if(ring_.begin(), ring_.end(), [&](const RingBin& b) { return b.Squared > *inner * *inner; });
  for (int outer = first; outer <= last; ++outer) {
    for (; bin != ring_.end() && bin->Squared <= outer * outer; ++bin) {
      const double here = autocorrelogram.Values[bin->Bin];
      if (!std::isfinite(here)) continue;
      for (int k = 0; k < kAngles; ++k) {
        const double there = bin->Rotated[k].In(autocorrelogram);
        if (std::isfinite(there)) correlations[k].Add(here, there);
      }
    }
    std::array<double, kAngles> r{};
    for (int k = 0; k < kAngles; ++k) r[k] = correlations[k].Value();
    if (std::any_of(r.begin(), r.end(), [](double value) { return std::isnan(value); })) continue;
    best = std::fmax(best, std::min(r[1], r[3]) - std::max({r[0], r[2], r[4]}));
  }
  return std::isnan(best) ? Measured::None("too few bins have a correlation") : Measured(best);
}

GridMeasures GridAnalysis::MeasuresOf(const Map& autocorrelogram, double pixelsPerCm) const {
  GridMeasures measures;
  measures.Score = ScoreOf(autocorrelogram);
  measures.Spacing = measures.Orientation = measures.Ellipticity =
      Measured::None("fewer than three peaks around the middle");
  const auto inner = autocorrelogram.Values.empty() ? std::nullopt : InnerRadius(autocorrelogram);
  const auto peaks = inner ? NearestPeaks(autocorrelogram, *inner) : std::nullopt;
  if (!peaks) return measures;
  std::array<double, 3> distances = {(*peaks)[0].Distance(), (*peaks)[1].Distance(), (*peaks)[2].Distance()};
  std::sort(distances.begin(), distances.end());
  measures.Spacing = distances[1] * autocorrelogram.Bin / ScaleOf(pixelsPerCm);
  measures.Orientation = OrientationOf(*peaks);
  measures.Ellipticity = EllipticityOf(*peaks);
  return measures;
}

}  // namespace pallomir
