#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/files/progress.h"

namespace pallomir {

/// Counts of spike pairs by lag. Pairs[k] is the number of pairs whose lag, the later stamp minus the earlier one, is
/// in [k, k + 1) times Width; the plot repeats the count at the negative lag. No spike is paired with itself.
struct LagHistogram {
  int64_t Width = 0;  ///< microseconds
  std::vector<int64_t> Pairs;
};

/// A spike train's autocorrelation, at short and long lags (Perkel et al. 1967, Biophysical Journal 7:391).
struct TrainAutocorrelation {
  LagHistogram Near{1'000, std::vector<int64_t>(50)};  ///< up to 50 ms
  LagHistogram Far{5'000, std::vector<int64_t>(100)};  ///< up to 500 ms
};

/// `spikes` in microseconds, in time order. Takes time linear in spikes times neighbours within 500 ms. Throws
/// Interrupted when the user stops it.
TrainAutocorrelation AutocorrelationOf(std::span<const int64_t> spikes, const Progress& progress = {});

inline constexpr int kLogBins = 60;                  ///< ten per decade, 0.1 ms to 100 s
inline constexpr int64_t kRefractoryPeriod = 2'000;  ///< microseconds

/// Histogram of the intervals between successive spikes.
struct LogIntervals {
  std::array<int64_t, kLogBins> Counts{};  ///< in [edge k, edge k + 1)
  int64_t Below = 0;                       ///< below the first edge
  int64_t Above = 0;                       ///< at or above the last edge
  int64_t Intervals = 0;                   ///< total
  int64_t Refractory = 0;                  ///< below kRefractoryPeriod
  /// The share of intervals below kRefractoryPeriod; 0 without intervals.
  double RefractoryShare() const {
    return Intervals > 0 ? static_cast<double>(Refractory) / static_cast<double>(Intervals) : 0;
  }
};

/// Edge k, 0 to kLogBins, in milliseconds: 0.1 x 10^(k / 10).
double LogEdge(int k);

/// `spikes` in microseconds, in time order.
LogIntervals LogIntervalsOf(std::span<const int64_t> spikes);

}  // namespace pallomir
