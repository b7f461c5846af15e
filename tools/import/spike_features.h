#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "pallomir/files/raw_layout.h"

namespace pallomir {

using Waveform = std::array<int16_t, kWaveformSamples>;

/// What is measured on the waveform of one channel. Heights are raw counts, places count samples from 0.
struct ChannelFeatures {
  int MPeak;      ///< the highest sample
  int PreVal;     ///< the lowest sample before the peak; the peak itself where it is the first sample
  int Valley;     ///< the lowest sample from the peak on
  double Energy;  ///< root mean square of the samples
  int PeakPlace;
  int ValleyPlace;
};

/// Where samples tie, the first is the peak, and the first from there on the valley.
ChannelFeatures MeasureChannel(const Waveform& samples);

/// What a spike's row takes from elsewhere than its waveform.
struct SpikeContext {
  uint64_t Stamp;   ///< microseconds
  uint64_t Record;  ///< its row, counted from 0
  float PosX;
  float PosY;
};

/// Writes a spike's row of a parameter file, kRowBytes from `row` on, which hold zeros or an earlier row of the same
/// number of channels.
void StoreParameterRow(std::span<const Waveform> channels, const SpikeContext& context, unsigned char* row);

}  // namespace pallomir
