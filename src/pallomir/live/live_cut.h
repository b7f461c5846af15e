#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "pallomir/results/measure_cluster.h"
#include "pallomir/science/behaviour/grid_map.h"
#include "pallomir/science/behaviour/head_direction.h"
#include "pallomir/science/trains/correlogram.h"
#include "pallomir/science/trains/train.h"
#include "pallomir/session/session.h"

namespace pallomir {

inline constexpr size_t kMostDrawn = 5000;

/// What pictures of one cluster are drawn from; null where nothing was computed yet.
struct CellPlots {
  struct Firing {
    TrainAutocorrelation Lags;
    LogIntervals Intervals;
    std::vector<double> Rate;  ///< spikes per second in equal parts of the loaded time
  };
  struct Space {
    Map Rate;
    DirectionTuning Direction;
    double PixelsPerCm = 0;  ///< 0 if unknown
  };
  /// At most kMostDrawn of the waveforms, evenly chosen.
  struct Overlaid {
    std::vector<WireSamples> Samples;
    std::array<double, kWires> UnitsPerCount{};  ///< microvolts if the file says how much a count is, otherwise 1
  };
  std::shared_ptr<const Firing> Train;
  std::shared_ptr<const SpikeHeights> Heights;
  std::shared_ptr<const Overlaid> Waveforms;
  std::shared_ptr<const Space> Place;
  std::shared_ptr<const Map> SpatialLags;  ///< the spatial autocorrelation
};

/// One cluster as far as it is measured. What is not fresh belongs to an earlier cut.
struct LiveCluster {
  bool Defined = false;
  int64_t Spikes = 0;  ///< within the loaded time; always those of the present cut
  MeasuredCluster Measures;
  CellPlots Plots;
  MeasureParts Measured;  ///< parts that are known, of this cut or an earlier one
  MeasureParts Fresh;
  bool SpatialLagsFresh = false;
};

struct LivePair {
  std::shared_ptr<const Correlogram> Lags;
  bool Fresh = false;
  bool operator==(const LivePair&) const = default;
};

/// What is known of the present cut.
struct LiveCut {
  bool Loaded = false;
  double LoadedMinutes = 0;
  bool InMicrovolts = false;
  /// Why the spike file or the positions cannot be used; empty if they can, or have not been read yet.
  std::string WhyNoSpikeFile, WhyNoPositions;
  ByCluster<LiveCluster> Clusters;
  /// By two cluster numbers, the smaller first; a cluster with itself is its autocorrelogram.
  std::map<std::pair<int, int>, LivePair> Pairs;
};

/// What the open windows show; nothing else is computed.
struct LiveWants {
  int Cell = 0;                   ///< the cluster whose measures and plots come first; 0 for none
  MeasureParts CellParts;         ///< of that cluster
  bool SpatialLags = false;       ///< of that cluster
  MeasureParts Table;             ///< of all defined clusters
  std::vector<int> Correlograms;  ///< all pairs of these clusters
  bool operator==(const LiveWants&) const = default;
};

}  // namespace pallomir
