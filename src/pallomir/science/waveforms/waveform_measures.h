#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measured.h"
#include "pallomir/science/waveforms/average_waveform.h"

namespace pallomir {

/// The height of each spike of a cluster on each wire: the largest of its 32 samples, in counts; in time order.
struct SpikeHeights {
  std::vector<int64_t> Time;  ///< microseconds
  std::array<std::vector<int16_t>, kWires> Counts;
};

/// What the waveforms of a cluster tell. The curve of a wire is the natural cubic spline through the means of its
/// samples; voltages are in the unit of `average`, usually microvolts.
struct WaveformMeasures {
  struct Wire {
    Measured Peak;    ///< the curve's maximum
    Measured Trough;  ///< its minimum after the peak
  };
  std::array<Wire, kWires> Wires;
  int Largest = -1;        ///< index of the wire whose means span most; -1 if no wire was recorded. The rest is its.
  Measured PeakToTrough;   ///< microseconds
  Measured Width;          ///< microseconds between the crossings of half the peak around it, about 0
  Measured SignalToNoise;  ///< (max - min of the means) / (2 sqrt(mean of the samples' variances))
  Measured Cutoff;         ///< share of spikes missing below the detection threshold, see AmplitudeCutoff
  Measured Drift;          ///< of the height, per hour: least squares through the medians of 20 equal parts of the time
  Measured Excursion;      ///< largest minus smallest of these medians
};

/// `microvolts` is the value of a count on each wire; `samplingRate` in hertz, 0 if unknown. The spikes of `heights`
/// are in `time`.
WaveformMeasures WaveformMeasuresOf(const AverageWaveform& average, const SpikeHeights& heights,
                                    const std::array<double, kWires>& microvolts, double samplingRate,
                                    const LoadedTime& time);

/// The share of spikes that the detection threshold kept out, 0 to 0.5, if heights are normally distributed: the
/// threshold is the 1 % quantile of `heights`, and the distribution is that which, cut off there, has their mean and
/// variance (Cohen 1959, Technometrics 1:217; after Hill et al. 2011). Reorders `heights`.
Measured AmplitudeCutoff(std::vector<double>& heights);

}  // namespace pallomir
