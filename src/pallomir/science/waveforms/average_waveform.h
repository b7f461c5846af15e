#pragma once

#include <array>
#include <cstdint>

#include "pallomir/science/waveforms/wire_samples.h"

namespace pallomir {

/// The average spike on the four wires.
struct AverageWaveform {
  using Wires = std::array<std::array<double, kWaveformSamples>, kWires>;
  int64_t Spikes = 0;
  Wires Mean{};                         ///< in the unit of `scale`, usually microvolts
  Wires Deviation{};                    ///< standard deviation (denominator n - 1); 0 for fewer than two spikes
  std::array<bool, kWires> Recorded{};  ///< at least one sample of the wire is not 0
};

/// Accumulates spikes one at a time. Means and squares are updated as in Welford (1962), so that a large mean does not
/// cost the deviation precision.
class WaveformAverager {
 public:
  void Add(const WireSamples& samples);

  /// `scale` is the value of one count on each wire.
  AverageWaveform Result(const std::array<double, kWires>& scale) const;

 private:
  int64_t spikes_ = 0;
  AverageWaveform::Wires mean_{};
  AverageWaveform::Wires squares_{};  ///< sum of squared deviations from the mean
};

}  // namespace pallomir
