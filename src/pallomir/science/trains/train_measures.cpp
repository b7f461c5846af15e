#include "pallomir/science/trains/train_measures.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pallomir {

namespace {

constexpr int64_t kBurstInterval = 6'000;
constexpr size_t kPresenceParts = 100;

Measured PresenceOf(std::span<const int64_t> spikes, const LoadedTime& time) {
  if (time.Length() == 0) return Measured::None("no time is loaded");
  std::vector<bool> present(kPresenceParts);
  for (const int64_t spike : spikes) present[time.ShareOf(spike, kPresenceParts)] = true;
  return static_cast<double>(std::count(present.begin(), present.end(), true)) / kPresenceParts;
}

int64_t CountInBursts(std::span<const int64_t> spikes) {
  const auto close = [&](size_t i) { return i > 0 && i < spikes.size() && spikes[i] - spikes[i - 1] < kBurstInterval; };
  int64_t count = 0;
  for (size_t i = 0; i < spikes.size(); ++i) count += close(i) || close(i + 1);
  return count;
}

/// Sums over intervals, for their variation. Two passes would need the intervals; Welford (1962) does not.
struct IntervalSums {
  double Count = 0, Mean = 0, Squares = 0;
  double Ratios = 0, RatioCount = 0;

  void Add(std::span<const int64_t> spikes) {
    for (size_t i = 1; i < spikes.size(); ++i) {
      const auto interval = static_cast<double>(spikes[i] - spikes[i - 1]);
      const double away = interval - Mean;
      Mean += away / ++Count;
      Squares += away * (interval - Mean);
    }
    for (size_t i = 2; i < spikes.size(); ++i) {
      const auto a = static_cast<double>(spikes[i - 1] - spikes[i - 2]),
                 b = static_cast<double>(spikes[i] - spikes[i - 1]);
      if (a + b == 0) continue;
      Ratios += 2 * std::abs(b - a) / (a + b);
      ++RatioCount;
    }
  }
  Measured Variation() const {
    if (Count < 2) return Measured::None("fewer than two intervals");
    return Mean > 0 ? Measured(std::sqrt(Squares / (Count - 1)) / Mean) : Measured::None("all intervals are 0");
  }
  Measured LocalVariation() const {
    return RatioCount > 0 ? Measured(Ratios / RatioCount) : Measured::None("fewer than two successive intervals");
  }
};

}  // namespace

TrainMeasures TrainMeasuresOf(std::span<const int64_t> spikes, const LoadedTime& time, const Refractory& refractory) {
  TrainMeasures measures;
  const auto duration = static_cast<double>(time.Length());
  measures.Spikes = static_cast<int64_t>(spikes.size());
  measures.Rate = duration > 0 ? Measured(static_cast<double>(spikes.size()) / (duration / 1e6))
                               : Measured::None("no time is loaded");
  measures.Presence = PresenceOf(spikes, time);
  int64_t bursting = 0;
  IntervalSums sums;
  time.ForEachPart(spikes, [&](std::span<const int64_t> part) {
    bursting += CountInBursts(part);
    sums.Add(part);
  });
  measures.Refractory = RefractoryMeasuresOf(spikes, time, refractory);
  measures.Bursts = spikes.empty() ? Measured::None("no spikes")
                                   : Measured(static_cast<double>(bursting) / static_cast<double>(spikes.size()));
  measures.Variation = sums.Variation();
  measures.LocalVariation = sums.LocalVariation();
  const Theta theta = ThetaOf(spikes, time);
  measures.ThetaIndex = theta.Index;
  measures.ThetaFrequency = theta.Frequency;
  return measures;
}

}  // namespace pallomir
