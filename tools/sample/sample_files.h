#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/progress_bar.h"
#include "tools/sample/cells.h"

namespace pallomir {

inline constexpr uint64_t kSampleStart = 1'200'000'000;  ///< stamp at which the sample recording starts, microseconds
inline constexpr double kSamplePixelsPerCm = 4;

/// Each writes one raw file of the sample recording; `microseconds` is the length of the recording.
/// They throw CommandError if the file cannot be written.

/// The cells' spikes and evenly spread multi-unit noise, `spikes` in total. The cell number of a record is the true
/// one, 0 for noise.
void WriteSampleSpikes(const std::filesystem::path& path, const std::vector<CellSpike>& cellSpikes, uint64_t spikes,
                       uint64_t microseconds, Draws draws, ProgressBar& progress);

/// Frames at about 30 Hz with jitter, some lost, with two gaps of seconds.
void WriteSampleVideo(const std::filesystem::path& path, const std::vector<WalkStep>& walk, Draws draws,
                      ProgressBar& progress);

/// Start and end of the recording and of three epochs, and TTL pulses.
void WriteSampleEvents(const std::filesystem::path& path, uint64_t microseconds);

}  // namespace pallomir
