#include "pallomir/science/waveforms/average_waveform.h"

#include <cmath>

namespace pallomir {

void WaveformAverager::Add(const WireSamples& samples) {
  const double share = 1 / static_cast<double>(++spikes_);
  for (int wire = 0; wire < kWires; ++wire)
    for (int s = 0; s < kWaveformSamples; ++s) {
      const double distance = samples[wire][s] - mean_[wire][s];
      mean_[wire][s] += distance * share;
      squares_[wire][s] += distance * (samples[wire][s] - mean_[wire][s]);
    }
}

AverageWaveform WaveformAverager::Result(const std::array<double, kWires>& scale) const {
  AverageWaveform average{.Spikes = spikes_};
  for (int wire = 0; wire < kWires; ++wire)
    for (int s = 0; s < kWaveformSamples; ++s) {
      const double variance = spikes_ > 1 ? squares_[wire][s] / static_cast<double>(spikes_ - 1) : 0;
      average.Mean[wire][s] = scale[wire] * mean_[wire][s];
      average.Deviation[wire][s] = scale[wire] * std::sqrt(variance);
      if (mean_[wire][s] != 0 || squares_[wire][s] != 0) average.Recorded[wire] = true;
    }
  return average;
}

}  // namespace pallomir
