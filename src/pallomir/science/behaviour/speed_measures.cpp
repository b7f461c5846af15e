#include "pallomir/science/behaviour/speed_measures.h"

#include <algorithm>
#include <cmath>

#include "pallomir/science/behaviour/grid_map.h"
#include "pallomir/science/statistics/add_scaled.h"
#include "pallomir/science/statistics/line_fit.h"
#include "pallomir/science/statistics/pearson.h"

namespace pallomir {

namespace {

constexpr double kSmoothing = 250'000;  // microseconds
constexpr double kSlowest = 2;          // cm per second

/// Smooths over sample numbers, with zeros beyond both ends: each value is spread as by the weights around it.
std::vector<double> Spread(const std::vector<double>& values, const std::vector<double>& weights) {
  const auto count = static_cast<std::ptrdiff_t>(values.size()),
             radius = static_cast<std::ptrdiff_t>(weights.size() / 2);
  std::vector<double> smooth(values.size());
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    if (values[static_cast<size_t>(i)] == 0) continue;
    const std::ptrdiff_t first = std::max<std::ptrdiff_t>(i - radius, 0), last = std::min(i + radius, count - 1);
    AddScaled(&weights[static_cast<size_t>(first - i + radius)], values[static_cast<size_t>(i)],
              &smooth[static_cast<size_t>(first)], static_cast<size_t>(last - first + 1));
  }
  return smooth;
}

}  // namespace

SpeedAnalysis::SpeedAnalysis(const Track& track, const MapSettings& settings) : placed_(track.Time.size()) {
  const double interval = MedianInterval(track.Time);
  if (!(interval > 0)) return;
  weights_ = GaussianWeights(kSmoothing / interval);
  std::vector<double> hold(track.Time.size());
  for (size_t i = 0; i < placed_.size(); ++i) {
    placed_[i] = !std::isnan(track.X[i]);
    if (!placed_[i]) continue;
    hold[i] = track.Hold[i] / 1e6;
    if (!(track.Speed[i] >= std::max(kSlowest, settings.SlowestCm) && track.Speed[i] <= settings.FastestCm)) continue;
    counted_.push_back(i);
    speed_.push_back(track.Speed[i]);
  }
  seconds_ = Spread(hold, weights_);
}

SpeedMeasures SpeedAnalysis::Of(std::span<const int64_t> samples) const {
  SpeedMeasures measures;
  measures.Score = measures.Slope = Measured::None("too few samples at 2 cm/s or more, or a rate that does not vary");
  if (weights_.empty()) return measures;
  std::vector<double> spikes(placed_.size());
  for (const int64_t i : samples)
    if (i >= 0 && placed_[static_cast<size_t>(i)]) ++spikes[static_cast<size_t>(i)];
  const std::vector<double> smooth = Spread(spikes, weights_);
  std::vector<double> rate(counted_.size());
  for (size_t k = 0; k < counted_.size(); ++k) rate[k] = smooth[counted_[k]] / seconds_[counted_[k]];
  const double score = PearsonOf(speed_, rate);
  if (std::isnan(score)) return measures;
  return {score, SlopeOf(speed_, rate)};
}

}  // namespace pallomir
