#include "tools/sample/spike_shapes.h"

#include <algorithm>
#include <cmath>

#include "tools/sample/curves.h"

namespace pallomir {

namespace {

constexpr double kNoise = 9;             // microvolts
constexpr double kSharedNoise = 0.4;     // share of the variance common to the wires
constexpr double kNoiseMemory = 0.5;     // correlation of a noise sample with the previous one
constexpr double kNoiseRenewal = 0.866;  // sqrt(1 - kNoiseMemory^2)

/// The height of a spike, with a peak of 1, `t` samples after the peak: a peak with flanks of `Rise` and `Fall`
/// samples, then a valley.
struct Outline {
  double Rise, Fall, ValleyTime, ValleyReach, ValleyDepth;

  double At(double t) const {
    return Hill(t / (t < 0 ? Rise : Fall)) - ValleyDepth * Hill((t - ValleyTime) / ValleyReach);
  }
};

constexpr Outline kPrincipal{6, 9, 13, 10, 0.38};
constexpr Outline kInterneuron{4, 5, 6.5, 6, 0.55};

using NoiseTrack = std::array<float, kWaveformSamples>;

NoiseTrack MakeNoise(double deviation, Draws& draws) {
  NoiseTrack track;
  double value = draws.Normal();
  for (float& sample : track) {
    value = kNoiseMemory * value + kNoiseRenewal * draws.Normal();
    sample = static_cast<float>(deviation * value);
  }
  return track;
}

int16_t Digitised(float microvolts) {
  const float counts = std::clamp(microvolts * kCountsPerMicrovolt, -32768.0F, 32767.0F);
  return static_cast<int16_t>(std::lround(counts));
}

}  // namespace

WaveformMaker::WaveformMaker() {
  for (int phase = 0; phase < kPhases; ++phase)
    for (int s = 0; s < kWaveformSamples; ++s) {
      const double t = s - kPeakSample + (phase + 0.5) / kPhases - 0.5;
      wide_[phase][s] = static_cast<float>(kPrincipal.At(t));
      narrow_[phase][s] = static_cast<float>(kInterneuron.At(t));
    }
}

TetrodeSamples WaveformMaker::Make(const SpikeShape& shape, Draws& draws) const {
  const auto phase = static_cast<size_t>(draws.Next() % kPhases);
  const NoiseTrack shared = MakeNoise(kNoise * std::sqrt(kSharedNoise), draws);
  TetrodeSamples samples;
  for (int wire = 0; wire < 4; ++wire) {
    const NoiseTrack own = MakeNoise(kNoise * std::sqrt(1 - kSharedNoise), draws);
    for (int s = 0; s < kWaveformSamples; ++s) {
      const float outline = wide_[phase][s] + shape.Narrowness * (narrow_[phase][s] - wide_[phase][s]);
      samples[s][wire] = Digitised(shape.Heights[wire] * outline + shared[s] + own[s]);
    }
  }
  return samples;
}

}  // namespace pallomir
