#pragma once

#include <bitset>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pallomir/recorded/spike_file.h"
#include "pallomir/science/behaviour/arena.h"
#include "pallomir/science/loaded_time.h"
#include "pallomir/science/trains/correlogram.h"
#include "pallomir/science/trains/train_measures.h"
#include "pallomir/science/waveforms/average_waveform.h"
#include "pallomir/science/waveforms/cluster_quality.h"
#include "pallomir/science/waveforms/cluster_separation.h"
#include "pallomir/science/waveforms/waveform_measures.h"

namespace pallomir {

/// The parts of a MeasuredCluster, by what they are computed from; each is computed on its own.
enum class MeasurePart { Train, Waveform, Place, Isolation };
inline constexpr int kMeasureParts = 4;
using MeasureParts = std::bitset<kMeasureParts>;
inline size_t IndexOf(MeasurePart part) {
  return static_cast<size_t>(part);
}
inline MeasureParts OnlyPart(MeasurePart part) {
  return MeasureParts().set(IndexOf(part));
}

/// All measures of one cluster.
struct MeasuredCluster {
  int Number = 0;
  TrainMeasures Train;
  AverageWaveform Average;
  WaveformMeasures Waveform;
  Isolation Apart;
  Separation Separate;
  BehaviourMeasures Behaviour;
  std::optional<ChanceMeasures> Chance;
  int64_t Missing = 0;  ///< spikes that the spike file does not contain
};

// Measures of one cluster, each from what it needs. Spikes are in time order, within the loaded time.

std::vector<int64_t> TimesOf(std::span<const ClusterSpike> spikes);

/// The waveforms of a cluster's spikes, gathered one at a time in the order of the file.
class ClusterWaveforms {
 public:
  void Add(int64_t stamp, const WireSamples& samples);

  /// Sets the average, the measures of the waveform, and how many of the cluster's `spikes` were not among them.
  void Measure(MeasuredCluster& cluster, const SpikeFile& file, const LoadedTime& time, size_t spikes) const;

  const SpikeHeights& Heights() const { return heights_; }

 private:
  WaveformAverager average_;
  SpikeHeights heights_;
};

/// The features of all recorded spikes within the loaded time, from which the isolation of any cluster is computed.
struct SpikeFeatures {
  FeatureColumns Columns;
  FeatureMoments All;
};

/// Sets isolation and separation; `member[i]` is not 0 if record i belongs to the cluster. Returns the moments of its
/// features. Throws Interrupted if `progress` requests it.
FeatureMoments MeasureIsolation(MeasuredCluster& cluster, const SpikeFeatures& features,
                                std::span<const uint8_t> member, const Progress& progress = {});

}  // namespace pallomir
