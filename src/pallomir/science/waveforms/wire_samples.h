#pragma once

#include <array>
#include <cstdint>

#include "pallomir/files/raw_layout.h"

namespace pallomir {

inline constexpr int kWires = 4;

/// The samples of a spike by wire, in raw counts.
using WireSamples = std::array<std::array<int16_t, kWaveformSamples>, kWires>;

}  // namespace pallomir
