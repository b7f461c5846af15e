#include "pallomir/science/behaviour/head_direction.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pallomir/science/behaviour/angles.h"
#include "pallomir/science/behaviour/grid_map.h"

namespace pallomir {

namespace {

constexpr double kSmoothing = 1;  // sigma, in bins: 6 degrees

size_t BinOf(double direction) {
  return static_cast<size_t>(std::clamp(std::floor(direction / kDirectionBin), 0.0, kDirectionBins - 1.0));
}

DirectionTuning::Bins SmoothedRound(const DirectionTuning::Bins& bins) {
  const std::vector<double> weights = GaussianWeights(kSmoothing);
  const int radius = static_cast<int>(weights.size() / 2);
  DirectionTuning::Bins smooth{};
  for (int bin = 0; bin < kDirectionBins; ++bin)
    for (int k = -radius; k <= radius; ++k)
      smooth[bin] += weights[k + radius] * bins[(bin + k + kDirectionBins) % kDirectionBins];
  return smooth;
}

}  // namespace

void DeriveFromRates(DirectionTuning& tuning) {
  double x = 0, y = 0, sum = 0;
  int visited = 0;
  for (int bin = 0; bin < kDirectionBins; ++bin) {
    if (std::isnan(tuning.Rate[bin])) continue;
    const double angle = (bin + 0.5) * kDirectionBin * std::numbers::pi / 180;
    x += tuning.Rate[bin] * std::cos(angle);
    y += tuning.Rate[bin] * std::sin(angle);
    sum += tuning.Rate[bin];
    tuning.PeakRate = std::fmax(tuning.PeakRate, tuning.Rate[bin]);
    ++visited;
  }
  tuning.Coverage = static_cast<double>(visited) / kDirectionBins;
  if (!(sum > 0)) return;
  tuning.VectorLength = std::min(std::hypot(x, y) / sum, 1.0);
  tuning.VectorDirection = DegreesOf(x, y);
}

DirectionTuning TuningOf(std::span<const double> direction, std::span<const double> hold,
                         std::span<const int64_t> samples) {
  DirectionTuning tuning;
  for (size_t i = 0; i < direction.size(); ++i)
    if (!std::isnan(direction[i])) tuning.Dwell[BinOf(direction[i])] += hold[i];
  for (double& seconds : tuning.Dwell) seconds /= 1e6;
  for (const int64_t i : samples) {
    if (i < 0 || std::isnan(direction[i])) continue;
    ++tuning.Spikes[BinOf(direction[i])];
    ++tuning.SpikesUsed;
  }
  const auto spikes = SmoothedRound(tuning.Spikes), dwell = SmoothedRound(tuning.Dwell);
  for (int bin = 0; bin < kDirectionBins; ++bin)
    tuning.Rate[bin] = tuning.Dwell[bin] > 0 ? spikes[bin] / dwell[bin] : kNotKnown;
  DeriveFromRates(tuning);
  return tuning;
}

}  // namespace pallomir
