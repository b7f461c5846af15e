#pragma once

#include <array>
#include <cstdint>

#include "pallomir/files/raw_layout.h"
#include "tools/sample/draws.h"

namespace pallomir {

inline constexpr int kPeakSample = 8;                  ///< counted from 0
inline constexpr float kCountsPerMicrovolt = 32.768F;  ///< full scale is 1 mV

/// The shape of a spike without noise.
struct SpikeShape {
  std::array<float, 4> Heights;  ///< of the peak on each wire, microvolts
  float Narrowness;              ///< 0 for a principal cell, 1 for a fast interneuron
};

/// 32 samples on each of four wires, in raw counts.
using TetrodeSamples = std::array<std::array<int16_t, 4>, kWaveformSamples>;

/// Makes waveforms at 32 kHz: the peak within half a sample of sample 8, and 9 microvolts of noise, partly shared
/// between the wires.
class WaveformMaker {
 public:
  WaveformMaker();
  TetrodeSamples Make(const SpikeShape& shape, Draws& draws) const;

 private:
  static constexpr int kPhases = 8;
  using Template = std::array<float, kWaveformSamples>;
  std::array<Template, kPhases> wide_;
  std::array<Template, kPhases> narrow_;
};

}  // namespace pallomir
