#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "pallomir/files/progress.h"
#include "pallomir/live/live_cut.h"
#include "pallomir/results/cut_points.h"
#include "pallomir/science/behaviour/arena.h"
#include "pallomir/science/measure_settings.h"

namespace pallomir {

/// A loaded recording as copies, so that other threads can measure its clusters while the session changes.
struct LiveRecording {
  std::filesystem::path SpikeFile;     ///< may be missing
  std::filesystem::path PositionFile;  ///< may be missing
  LoadedTime Time;
  MeasureSettings Settings;
  TimedPoints Points;
};

/// Where the recorded waveforms of the points are.
struct RecordPlaces {
  std::vector<int64_t> Stamps;
  std::vector<uint64_t> Numbers;  ///< of the records in the spike file
  std::vector<int64_t> Rows;      ///< of their points, or -1
  bool InMicrovolts = false;      ///< the file says how much a count is

  /// Which of the records belong to a cluster: not 0.
  std::vector<uint8_t> MembersOf(std::span<const ClusterSet> sets, int cluster) const;
};

/// What is computed once for all clusters of a recording; null where it has not been, or cannot be.
struct LivePreparations {
  std::shared_ptr<const RecordPlaces> Places;
  std::shared_ptr<const SpikeFeatures> Features;
  std::shared_ptr<const Arena> Behaviour;
};

/// Throws CommandError if the spike file cannot be used.
std::shared_ptr<const RecordPlaces> FindPlaces(const LiveRecording& recording, const Progress& progress);

// Each part of a cluster's measures, with the plots that go with it. They throw CommandError if a file cannot be used,
// Interrupted if `progress` requests it.

void MeasureTrain(LiveCluster& cluster, const LiveRecording& recording, std::span<const ClusterSpike> spikes,
                  const Progress& progress);
void MeasureWaveforms(LiveCluster& cluster, const LiveRecording& recording, const RecordPlaces& places,
                      std::span<const ClusterSet> sets, const Progress& progress);
void MeasurePlace(LiveCluster& cluster, const Arena& arena, std::span<const ClusterSpike> spikes);

}  // namespace pallomir
