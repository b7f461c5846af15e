#include "pallomir/science/trains/correlogram.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "pallomir/science/statistics/poisson.h"

namespace pallomir {

namespace {

constexpr double kSmoothing = 10'000, kReach = 30'000;  // microseconds
constexpr double kMiddle = 0.4;
constexpr double kLowTail = 0.005, kHighTail = 0.995;

/// The weights -r..r.
std::vector<double> HollowGaussian(int64_t width) {
  const auto step = static_cast<double>(width);
  const auto radius = static_cast<int64_t>(kReach / step);
  std::vector<double> weights;
  for (int64_t k = -radius; k <= radius; ++k) {
    const double x = static_cast<double>(k) * step / kSmoothing;
    weights.push_back(std::exp(-x * x / 2) * (k == 0 ? kMiddle : 1));
  }
  const double sum = std::accumulate(weights.begin(), weights.end(), 0.0);
  for (double& weight : weights) weight /= sum;
  return weights;
}

/// Index k of n values that are continued by mirror images, the value at the edge repeated.
size_t Mirrored(int64_t k, int64_t n) {
  const int64_t within = ((k % (2 * n)) + 2 * n) % (2 * n);
  return static_cast<size_t>(within < n ? within : 2 * n - 1 - within);
}

std::span<const ClusterSpike> Within(std::span<const ClusterSpike> spikes, const TimeRange& part) {
  const auto begin = std::partition_point(spikes.begin(), spikes.end(),
                                          [&](const ClusterSpike& spike) { return spike.Time < part.First; });
  const auto end =
      std::partition_point(begin, spikes.end(), [&](const ClusterSpike& spike) { return spike.Time <= part.Last; });
  return {begin, end};
}

void AddPairs(std::span<const ClusterSpike> a, std::span<const ClusterSpike> b, Correlogram& correlogram) {
  const int64_t reach = static_cast<int64_t>(correlogram.Pairs.size()) / 2 * correlogram.Width;
  size_t first = 0;
  for (const ClusterSpike& spike : a) {
    while (first < b.size() && b[first].Time - spike.Time < -reach) ++first;
    for (size_t k = first; k < b.size() && b[k].Time - spike.Time < reach; ++k)
      if (b[k].Record != spike.Record)
        ++correlogram.Pairs[static_cast<size_t>((b[k].Time - spike.Time + reach) / correlogram.Width)];
  }
}

}  // namespace

Correlogram CorrelogramOf(std::span<const ClusterSpike> a, std::span<const ClusterSpike> b, const LoadedTime& time,
                          const CorrelogramSettings& settings) {
  Correlogram correlogram;
  correlogram.Width = std::max<int64_t>(std::llround(settings.BinMs * 1e3), 1);
  const int64_t bins = std::max<int64_t>(std::llround(settings.WindowMs / settings.BinMs), 1);
  correlogram.Pairs.resize(static_cast<size_t>(2 * bins));
  for (const TimeRange& part : time.Parts()) AddPairs(Within(a, part), Within(b, part), correlogram);
  DeriveExpectation(correlogram);
  return correlogram;
}

void DeriveExpectation(Correlogram& correlogram) {
  const std::vector<double> weights = HollowGaussian(correlogram.Width);
  const auto radius = static_cast<int64_t>(weights.size() / 2), bins = static_cast<int64_t>(correlogram.Pairs.size());
  for (int64_t bin = 0; bin < bins; ++bin) {
    double expected = 0;
    for (int64_t k = -radius; k <= radius; ++k)
      expected +=
          weights[static_cast<size_t>(k + radius)] * static_cast<double>(correlogram.Pairs[Mirrored(bin + k, bins)]);
    correlogram.Expected.push_back(expected);
    correlogram.Low.push_back(PoissonQuantile(kLowTail, expected));
    correlogram.High.push_back(PoissonQuantile(kHighTail, expected));
    correlogram.ExcessP.push_back(PoissonExcess(correlogram.Pairs[static_cast<size_t>(bin)], expected));
  }
}

}  // namespace pallomir
