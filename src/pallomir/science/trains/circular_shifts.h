#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measure_settings.h"
#include "pallomir/science/measured.h"

namespace pallomir {

/// How a measure compares with what the same train gives when its spikes are shifted against the animal's behaviour.
struct ChanceLevel {
  Measured P;               ///< share of trains, the own one among them, with as large a value
  Measured LowerP;          ///< with as small a value
  Measured Mean, Z;         ///< of the shifted trains; (value - mean) / standard deviation (n - 1)
  Measured High95, High99;  ///< percentiles of the shifted trains
  int Finite = 0;           ///< shifts for which the measure has a value
};

/// `shifted` has a value for each shift, NaN where there is none; these are left out.
ChanceLevel ChanceLevelOf(double value, std::span<const double> shifted);

/// Circular shifts of spike trains in the loaded time, by 20 s at least either way: the same ones for every cluster and
/// measure, from the seed. Empty if less than 60 s are loaded.
std::vector<int64_t> CircularShifts(const LoadedTime& time, const ChanceSettings& settings);

/// A spike train in loaded time, for shifting it against the samples of a track.
class ShiftedTrain {
 public:
  /// `sampleTimes` are stamps of a Track over `time`, `hold` its hold times; `spikes` in time order, all within `time`.
  ShiftedTrain(std::span<const int64_t> spikes, std::span<const int64_t> sampleTimes, std::span<const double> hold,
               const LoadedTime& time);

  /// The sample of each spike, or -1, after moving them on by `shift` microseconds, those past the end to the start.
  void SamplesAt(int64_t shift, std::vector<int64_t>& samples) const;

 private:
  struct Sample {
    int64_t From, To;  ///< loaded time for which it counts, To exclusive
    int64_t Index;
  };
  int64_t length_;
  std::vector<int64_t> spikes_;  ///< loaded times
  std::vector<Sample> samples_;
};

}  // namespace pallomir
