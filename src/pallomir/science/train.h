#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/files/progress.h"

namespace pallomir {

/// How often two spikes were a lag apart. Pairs[k] counts the pairs whose lag, the later stamp minus the earlier one,
/// lies in [k, k + 1) times Width; the picture has the same count at the mirrored place. No spike is paired with
/// itself.
struct LagHistogram {
  int64_t Width = 0;  ///< microseconds
  std::vector<int64_t> Pairs;
};

/// A spike train's autocorrelation, near and far (Perkel et al. 1967, Biophysical Journal 7:391).
struct TrainAutocorrelation {
  LagHistogram Near{1'000, std::vector<int64_t>(50)};  ///< up to 50 ms
  LagHistogram Far{5'000, std::vector<int64_t>(100)};  ///< up to 500 ms
};

/// `spikes` in microseconds and in order of time. The time it takes is linear in spikes times neighbours within 500 ms.
/// Throws Interrupted when the user stops it.
TrainAutocorrelation AutocorrelationOf(std::span<const int64_t> spikes, const Progress& progress = {});

inline constexpr int kLogBins = 60;                  ///< ten a decade, 0.1 ms to 100 s
inline constexpr int64_t kRefractoryPeriod = 2'000;  ///< microseconds

/// How long the intervals between successive spikes were.
struct LogIntervals {
  std::array<int64_t, kLogBins> Counts{};  ///< in [edge k, edge k + 1)
  int64_t Below = 0;                       ///< under the first edge
  int64_t Above = 0;                       ///< from the last edge on
  int64_t Intervals = 0;                   ///< all of them
  int64_t Refractory = 0;                  ///< below kRefractoryPeriod
  /// The share of intervals below kRefractoryPeriod; 0 when there is none.
  double RefractoryShare() const {
    return Intervals > 0 ? static_cast<double>(Refractory) / static_cast<double>(Intervals) : 0;
  }
};

/// Edge k, 0 to kLogBins, in milliseconds: 0.1 x 10^(k / 10).
double LogEdge(int k);

/// `spikes` in microseconds and in order of time.
LogIntervals LogIntervalsOf(std::span<const int64_t> spikes);

}  // namespace pallomir
