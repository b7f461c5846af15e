#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "pallomir/results/measure_cluster.h"
#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measure_settings.h"
#include "pallomir/science/trains/correlogram.h"
#include "pallomir/session/session.h"

namespace pallomir {

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
