#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measure_settings.h"

namespace pallomir {

/// The lags between the spikes of two clusters, with what their slow changes of rate alone would give.
struct Correlogram {
  int64_t Width = 0;           ///< of a bin, microseconds
  std::vector<int64_t> Pairs;  ///< bin k counts lags b - a from (k - n) to (k - n + 1) Width, for n = half the bins
  /// The counts smoothed with a partly hollow Gaussian (sigma 10 ms out to 30 ms, its middle weighted 0.4), mirrored at
  /// the ends (Stark and Abeles 2009, J Neurosci Methods 179:90; English et al. 2017, Neuron 96:505).
  std::vector<double> Expected;
  /// 99 % of the counts of a Poisson variable with the expected mean are in this band, both ends included.
  std::vector<int64_t> Low, High;
  std::vector<double> ExcessP;  ///< probability of so many pairs or more, half of those of exactly so many
};

/// A spike of a cluster: its stamp and the record by which it is known in other clusters.
struct ClusterSpike {
  int64_t Time;
  int64_t Record;
};

/// Lags from each spike of `a` to each of `b`, both in time order; a record in both clusters makes no pair with itself.
Correlogram CorrelogramOf(std::span<const ClusterSpike> a, std::span<const ClusterSpike> b, const LoadedTime& time,
                          const CorrelogramSettings& settings);

/// Expectation and band of counts in bins of `width` microseconds.
void DeriveExpectation(Correlogram& correlogram);

}  // namespace pallomir
