#include "pallomir/science/behaviour/head_direction.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pallomir/science/behaviour/angles.h"
#include "pallomir/science/behaviour/grid_map.h"

namespace pallomir {

namespace {

size_t BinOf(double direction, int bins) {
  return static_cast<size_t>(std::clamp(std::floor(direction / (360.0 / bins)), 0.0, bins - 1.0));
}

DirectionTuning::Bins SmoothedRound(const DirectionTuning::Bins& bins, double sigma) {
  const std::vector<double> weights = GaussianWeights(sigma);
  const int radius = static_cast<int>(weights.size() / 2), count = static_cast<int>(bins.size());
  DirectionTuning::Bins smooth(bins.size());
  for (int bin = 0; bin < count; ++bin)
    for (int k = -radius; k <= radius; ++k)
      smooth[bin] += weights[k + radius] * bins[((bin + k) % count + count) % count];
  return smooth;
}

}  // namespace

void DeriveFromRates(DirectionTuning& tuning) {
  double x = 0, y = 0, sum = 0, visited = 0;
  for (size_t bin = 0; bin < tuning.Rate.size(); ++bin) {
    if (std::isnan(tuning.Rate[bin])) continue;
    const double angle = (static_cast<double>(bin) + 0.5) * tuning.Width() * std::numbers::pi / 180;
    x += tuning.Rate[bin] * std::cos(angle);
    y += tuning.Rate[bin] * std::sin(angle);
    sum += tuning.Rate[bin];
    tuning.PeakRate = std::fmax(tuning.PeakRate, tuning.Rate[bin]);
    ++visited;
  }
  tuning.Coverage = tuning.Rate.empty() ? 0 : visited / static_cast<double>(tuning.Rate.size());
  if (!(sum > 0)) return;
  tuning.VectorLength = std::min(std::hypot(x, y) / sum, 1.0);
  tuning.VectorDirection = DegreesOf(x, y);
}

DirectedSamples::DirectedSamples(std::span<const double> direction, std::span<const double> hold,
                                 const DirectionSettings& settings)
    : settings_(settings), bins_(direction.size(), -1), dwell_(static_cast<size_t>(settings.Bins)) {
  for (size_t i = 0; i < direction.size(); ++i) {
    if (std::isnan(direction[i])) continue;
    const size_t bin = BinOf(direction[i], settings.Bins);
    bins_[i] = static_cast<int32_t>(bin);
    dwell_[bin] += hold[i];
  }
  for (double& seconds : dwell_) seconds /= 1e6;
}

DirectionTuning DirectedSamples::TuningOf(std::span<const int64_t> samples) const {
  DirectionTuning tuning(settings_.Bins);
  tuning.Dwell = dwell_;
  for (const int64_t i : samples) {
    const int32_t bin = i < 0 ? -1 : bins_[static_cast<size_t>(i)];
    if (bin < 0) continue;
    ++tuning.Spikes[static_cast<size_t>(bin)];
    ++tuning.SpikesUsed;
  }
  const double sigma = settings_.SmoothingDegrees / tuning.Width();
  const auto spikes = SmoothedRound(tuning.Spikes, sigma), dwell = SmoothedRound(tuning.Dwell, sigma);
  for (size_t bin = 0; bin < tuning.Rate.size(); ++bin)
    tuning.Rate[bin] = tuning.Dwell[bin] > 0 ? spikes[bin] / dwell[bin] : kNotKnown;
  DeriveFromRates(tuning);
  return tuning;
}

DirectionMeasures DirectionMeasuresOf(const DirectionTuning& tuning) {
  DirectionMeasures measures;
  measures.SpikesUsed = tuning.SpikesUsed;
  measures.PeakRate = std::isnan(tuning.PeakRate) ? Measured::None("no direction is known") : Measured(tuning.PeakRate);
  if (std::isnan(tuning.VectorLength)) {
    const Measured silent = Measured::None("no spike has a direction");
    measures.VectorLength = measures.VectorDirection = measures.RayleighP = measures.Width = measures.BitsPerSpike =
        silent;
    return measures;
  }
  const double r = tuning.VectorLength;
  measures.VectorLength = r;
  measures.VectorDirection = tuning.VectorDirection;
  const auto n = static_cast<double>(tuning.SpikesUsed);
  measures.RayleighP = std::exp(std::sqrt(1 + 4 * n + 4 * n * n * (1 - r * r)) - 1 - 2 * n);
  measures.Width =
      r > 0 ? Measured(std::sqrt(-2 * std::log(r)) * 180 / std::numbers::pi) : Measured::None("the mean vector is 0");
  double seconds = 0, spikes = 0, bits = 0;
  for (size_t bin = 0; bin < tuning.Rate.size(); ++bin) {
    if (std::isnan(tuning.Rate[bin])) continue;
    seconds += tuning.Dwell[bin];
    spikes += tuning.Dwell[bin] * tuning.Rate[bin];
  }
  const double mean = spikes / seconds;
  for (size_t bin = 0; bin < tuning.Rate.size(); ++bin)
    if (tuning.Rate[bin] > 0) bits += tuning.Dwell[bin] * tuning.Rate[bin] / mean * std::log2(tuning.Rate[bin] / mean);
  measures.BitsPerSpike = bits / seconds;
  return measures;
}

}  // namespace pallomir
