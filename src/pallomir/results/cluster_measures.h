#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

#include "pallomir/results/spike_times.h"
#include "pallomir/science/waveforms/average_waveform.h"
#include "pallomir/science/waveforms/cluster_quality.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Measures of a cluster computed from the spike file.
struct ClusterMeasures {
  AverageWaveform Average;  ///< in microvolts, or in counts if the header has no scale
  bool InMicrovolts = false;
  Isolation Apart;         ///< compared with the file's other spikes within the time range
  double DeadTime = 0;     ///< microseconds after a spike in which no other is detected; 0 if the header does not say
  int64_t Missing = 0;     ///< spikes of the cluster that the file does not contain within the range
  int64_t Ambiguous = 0;   ///< records with the stamp of a spike of the cluster that were not needed
  int64_t Unreadable = 0;  ///< records with an implausible stamp, skipped
  int64_t TrailingBytes = 0;  ///< incomplete record at the end of the file
};

/// Reads the spike file for the cluster whose spikes have the stamps `spikes` (microseconds, in any order); uses only
/// records within `range`. The principal components are computed from all these records, or from every k-th if there
/// are more than 100,000. Memory: 41 bytes per record within the range for four wires.
///
/// Throws CommandError if the file cannot be read or is not a spike file, Interrupted when the user stops it.
ClusterMeasures MeasureCluster(World& world, const std::filesystem::path& spikeFile, std::span<const int64_t> spikes,
                               const TimeRange& range);

}  // namespace pallomir
