#pragma once

#include <array>
#include <cstdint>

#include "pallomir/science/wire_samples.h"

namespace pallomir {

/// The average spike on the four wires.
struct AverageWaveform {
  using Wires = std::array<std::array<double, kWaveformSamples>, kWires>;
  int64_t Spikes = 0;
  Wires Mean{};                         ///< in units of the scale that was given, microvolts as a rule
  Wires Deviation{};                    ///< standard deviation, n - 1 in its denominator; 0 for fewer than two spikes
  std::array<bool, kWires> Recorded{};  ///< some sample of the wire is not 0
};

/// Takes spikes in one by one. Means and squares are updated as in Welford (1962), so that a large mean does not cost
/// the deviation its digits.
class WaveformAverager {
 public:
  void Add(const WireSamples& samples);

  /// `scale` is what a count is worth on each wire.
  AverageWaveform Result(const std::array<double, kWires>& scale) const;

 private:
  int64_t spikes_ = 0;
  AverageWaveform::Wires mean_{};
  AverageWaveform::Wires squares_{};  ///< sum of squared distances from the mean
};

}  // namespace pallomir
