#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/science/waveforms/wire_samples.h"

namespace pallomir {

/// How many of some waveforms pass through each cell of a picture of one wire.
struct WaveformDensity {
  int Columns = 0, Rows = 0;
  double Low = 0, High = 0;      ///< counts at the lower edge of the last row and the upper edge of the first
  std::vector<uint32_t> Passes;  ///< row-major, the highest voltage first

  uint32_t At(int row, int column) const { return Passes[static_cast<size_t>(row) * Columns + column]; }
};

/// The range from `low` to `high` counts on `wire`; the waveforms run through straight lines between their samples, the
/// first in the first column, the last in the last.
WaveformDensity DensityOf(std::span<const WireSamples> waveforms, int wire, int columns, int rows, double low,
                          double high);

/// The range that holds all but a thousandth of the samples at either end, in counts.
struct SampleRange {
  double Low = 0, High = 0;
};
SampleRange RangeOfSamples(std::span<const WireSamples> waveforms);

}  // namespace pallomir
