#pragma once

#include <cstdint>
#include <span>

#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measured.h"
#include "pallomir/science/trains/refractory.h"

namespace pallomir {

/// What the times of a cluster's spikes tell. N spikes in loaded time T.
struct TrainMeasures {
  int64_t Spikes = 0;
  Measured Rate;      ///< N / T, spikes per second
  Measured Presence;  ///< share of 100 equal parts of the loaded time in which the cell fired
  RefractoryMeasures Refractory;
  /// The share of spikes less than 6 ms before or after another (Mizuseki et al. 2012, Hippocampus 22:1659).
  Measured Bursts;
  Measured Variation;       ///< CV: standard deviation (n - 1) of the intervals over their mean
  Measured LocalVariation;  ///< CV2: mean of 2 |b - a| / (a + b) over successive intervals (Holt et al. 1996)
  Measured ThetaIndex;      ///< see ThetaOf
  Measured ThetaFrequency;  ///< Hz
};

/// `spikes` in microseconds, in time order, all within `time`.
TrainMeasures TrainMeasuresOf(std::span<const int64_t> spikes, const LoadedTime& time, const Refractory& refractory);

/// Rhythmic firing at 5 to 11 Hz. The counts of pairs by lag in bins of 2 ms centred on multiples of 2 ms, out to
/// 500 ms and mirrored, bin 0 set to the largest of the others, are transformed without taper, padded to 2^16 values.
/// Index is the mean power within 1 Hz of the frequency of the largest power, over the mean power from 0 to 125 Hz
/// (after Yartsev et al. 2011, Nature 479:103).
struct Theta {
  Measured Index;
  Measured Frequency;  ///< Hz
};
Theta ThetaOf(std::span<const int64_t> spikes, const LoadedTime& time);

}  // namespace pallomir
