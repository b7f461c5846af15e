#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "pallomir/files/raw_layout.h"

namespace pallomir {

using Waveform = std::array<int16_t, kWaveformSamples>;

/// Features of the waveform of one channel. Heights are in raw counts, sample indices count from 0.
struct ChannelFeatures {
  int MPeak;      ///< the highest sample
  int PreVal;     ///< the lowest sample before the peak; the peak itself if it is the first sample
  int Valley;     ///< the lowest sample from the peak on
  double Energy;  ///< root mean square of the samples
  int PeakPlace;
  int ValleyPlace;
};

/// If samples are equal, the first is the peak, and the first from there on the valley.
ChannelFeatures MeasureChannel(const Waveform& samples);

/// Values of a spike's row that do not come from its waveform.
struct SpikeContext {
  uint64_t Stamp;   ///< microseconds
  uint64_t Record;  ///< index of its row, from 0
  float PosX;
  float PosY;
};

/// Writes a spike's row of a parameter file, kRowBytes at `row`, which must be zero or an earlier row with the same
/// number of channels.
void StoreParameterRow(std::span<const Waveform> channels, const SpikeContext& context, unsigned char* row);

}  // namespace pallomir
