#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "pallomir/science/behaviour/arena.h"
#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measure_settings.h"
#include "pallomir/science/trains/correlogram.h"
#include "pallomir/science/trains/train_measures.h"
#include "pallomir/science/waveforms/average_waveform.h"
#include "pallomir/science/waveforms/cluster_quality.h"
#include "pallomir/science/waveforms/cluster_separation.h"
#include "pallomir/science/waveforms/waveform_measures.h"
#include "pallomir/session/session.h"

namespace pallomir {

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

/// What two clusters have to do with each other; A is the one with the smaller number.
struct MeasuredPair {
  int A = 0, B = 0;
  Correlogram Lags;    ///< from the spikes of A to those of B
  int64_t Shared = 0;  ///< points in both
  Measured Distance;   ///< of the means, under the pooled covariance (Mahalanobis)
  Measured MapCorrelation;
};

/// The measures of a cut, and what they were made from.
struct MeasuredCut {
  MeasureSettings Settings;
  double LoadedSeconds = 0;
  bool InMicrovolts = false;                   ///< otherwise voltages are in counts
  double DeadTime = 0;                         ///< microseconds
  std::string WhyNoSpikeFile, WhyNoPositions;  ///< why measures from that file are missing; otherwise empty
  std::vector<MeasuredCluster> Clusters;
  std::vector<MeasuredPair> Pairs;
};

/// What MeasureClusters() works on besides the points.
struct MeasureSources {
  std::filesystem::path SpikeFile;     ///< may be missing
  std::filesystem::path PositionFile;  ///< may be missing
  LoadedTime Time;                     ///< spikes outside do not count
  MeasureSettings Settings;
  bool Chance = false;  ///< compare with chance, which takes seconds for each cluster
  bool Pairs = true;
};

/// Measures all defined clusters of the loaded points; reads each file once, a spike file of more than a gigabyte of
/// samples twice more. A file that is missing leaves its measures unknown. Throws CommandError for one that is there
/// and cannot be used, Interrupted when `progress` asks for it.
MeasuredCut MeasureClusters(const Session& session, const MeasureSources& sources, const Progress& progress = {});

/// The same as work that has taken from the session what it needs, so that it can run in a thread of its own.
std::function<MeasuredCut(const Progress&)> PrepareMeasures(const Session& session, const MeasureSources& sources);

}  // namespace pallomir
