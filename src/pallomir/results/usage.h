#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/text_header.h"
#include "pallomir/results/spike_times.h"
#include "pallomir/science/tracking.h"

namespace pallomir {

/// What an analysis took in and what it left out. Each result file carries it in its header.
struct Usage {
  int64_t Spikes = 0;               ///< of the cluster, within the time range
  int64_t SpikesUsed = 0;           ///< of these, the ones that the result is made of
  int64_t SpikesOutside = 0;        ///< of the cluster, not within the time range
  int64_t SpikesUnreadable = 0;     ///< of the cluster, without a stamp that makes sense
  int64_t SpikesDisordered = 0;     ///< earlier than the one before; sorted
  int64_t Samples = 0;              ///< of the position file, within the time range
  int64_t SamplesLost = 0;          ///< of these, without a place
  int64_t SamplesInterpolated = 0;  ///< of these, placed between neighbours
  int64_t SamplesDisordered = 0;    ///< earlier than the one before; sorted
  int64_t SamplesUnreadable = 0;    ///< lines of the position file that are no samples
};

/// All of them count as used until an analysis says otherwise.
void SetSpikes(Usage& usage, const SpikeTimes& spikes);
void SetSamples(Usage& usage, const Positions& positions, const Track& track);

/// What a window says under a plot, in short sentences: "Used 12 of 15 spikes. 3 position samples were out of time
/// order and sorted." What is not odd is not mentioned.
std::string UsageText(const Usage& usage);

/// The header lines that hold it, and back. Throws CommandError where a line holds no count; `name` is the file's.
std::vector<HeaderEntry> HeaderEntries(const Usage& usage);
Usage UsageFrom(std::string_view header, std::string_view name);

}  // namespace pallomir
