#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/text_header.h"
#include "pallomir/results/spike_times.h"
#include "pallomir/science/behaviour/tracking.h"

namespace pallomir {

/// How many spikes and samples an analysis used and skipped. Each result file has it in its header.
struct Usage {
  int64_t Spikes = 0;               ///< of the cluster, within the time range
  int64_t SpikesUsed = 0;           ///< of these, those used in the result
  int64_t SpikesOutside = 0;        ///< of the cluster, outside the time range
  int64_t SpikesUnreadable = 0;     ///< of the cluster, with an implausible stamp
  int64_t SpikesDisordered = 0;     ///< earlier than the previous one; sorted
  int64_t Samples = 0;              ///< of the position file, within the time range
  int64_t SamplesLost = 0;          ///< of these, without a position
  int64_t SamplesInterpolated = 0;  ///< of these, with an interpolated position
  int64_t SamplesDisordered = 0;    ///< earlier than the previous one; sorted
  int64_t SamplesUnreadable = 0;    ///< lines of the position file that are not samples
  /// Settings that differ from their defaults, as header lines; a result file keeps them.
  std::vector<HeaderEntry> Settings;
};

/// Until an analysis sets SpikesUsed, all spikes count as used.
void SetSpikes(Usage& usage, const SpikeTimes& spikes);
void SetSamples(Usage& usage, const Positions& positions, const Track& track);

/// The text below a plot, in short sentences: "Used 12 of 15 spikes. 3 position samples were out of time order and
/// sorted." Counts of 0 are omitted.
std::string UsageText(const Usage& usage);

/// Converts a Usage to header lines and back. Throws CommandError naming `file`, if a line is not a count.
std::vector<HeaderEntry> HeaderEntries(const Usage& usage);
Usage UsageFrom(std::string_view header, const std::filesystem::path& file);

}  // namespace pallomir
