#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "pallomir/results/spike_times.h"
#include "pallomir/science/average_waveform.h"
#include "pallomir/science/cluster_quality.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// What the spike file tells about a cluster.
struct ClusterMeasures {
  AverageWaveform Average;  ///< in microvolts, in counts where the header has no scale
  bool InMicrovolts = false;
  Isolation Apart;            ///< the other spikes are those of the file within the time range
  double DeadTime = 0;        ///< microseconds after a spike without another; 0 where the header does not say
  int64_t Missing = 0;        ///< spikes of the cluster that the file does not hold within the range
  int64_t Ambiguous = 0;      ///< records that have the stamp of a spike of the cluster but were not needed
  int64_t Unreadable = 0;     ///< records without a stamp that makes sense, left out
  int64_t TrailingBytes = 0;  ///< at the end of the file, no whole record
};

/// Reads the spike file for the cluster whose spikes have the stamps `spikes` (microseconds, in any order), looking
/// only at records within `range`. The principal components are those of all these records, of every k-th where they
/// are more than 100,000. Memory: 41 bytes a record within the range for four wires.
///
/// Throws CommandError when the file cannot be read or is none, Interrupted when the user stops it.
ClusterMeasures MeasureCluster(World& world, std::string_view spikeFile, std::span<const int64_t> spikes,
                               const TimeRange& range);

}  // namespace pallomir
