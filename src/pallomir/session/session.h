#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "pallomir/session/boundary_table.h"
#include "pallomir/session/parameter_catalogue.h"
#include "pallomir/session/point_table.h"

namespace pallomir {

/// A colour as 0xBBGGRR, red in the low byte.
using Colour = uint32_t;

template <class T>
using ByParameter = std::array<T, kParameterSlots>;
template <class T>
using ByCluster = std::array<T, kClusterSlots>;

/// Rows of the epoch table.
inline constexpr size_t kEpochs = 30;
template <class T>
using ByEpoch = std::array<T, kEpochs>;

/// The parameter file of the run.
struct ParameterFile {
  std::filesystem::path Path;
  long HeaderLength = 0;
  int64_t RecordCount = 0;
};

/// The user's grade of a cluster.
struct ClusterNote {
  /// The cluster's own number once it has been graded; 0 before.
  int16_t Number = 0;
  /// One of kRatings, or empty.
  std::string Rating;
  std::string Remarks;
  bool operator==(const ClusterNote&) const = default;
};

/// The state shared by all forms: one instance, created in main() and passed by reference. Data only.
struct Session {
  ParameterFile File;
  std::filesystem::path DataDirectory;

  /// The loaded rows: none before the first load, then one for each record of the range. Loops over points use
  /// Points.Rows(), which follows the range.
  PointTable Points;
  /// The loaded range, inclusive. 0 and 0 if nothing is loaded; after a range was unloaded one row remains.
  int32_t LoadStartRecord = 0;
  int32_t LoadEndRecord = 0;
  /// True from start-up until the first load has ended.
  bool FirstLoad = true;

  ByParameter<std::string> ParameterNames = ParameterCatalogue();
  /// Parameters that are 0, or not finite, in all loaded spikes.
  ByParameter<bool> AllZero{};
  /// Of the first load.
  ByParameter<float> DataMinimum{};
  ByParameter<float> DataMaximum{};
  ByParameter<float> AxisMinimum{};
  ByParameter<float> AxisMaximum{};

  /// First and last spike of each epoch, as found by the search: stamps in microseconds and record numbers.
  ByEpoch<double> EpochStartTimestamp{};
  ByEpoch<int32_t> EpochStartRecord{};
  ByEpoch<double> EpochEndTimestamp{};
  ByEpoch<int32_t> EpochEndRecord{};

  /// True while the points of several epochs are loaded, of which only the ticked ones may be displayed.
  bool MultipleEpochs = false;

  BoundaryTable Clusters{};
  /// The cluster-defined mark, by cluster.
  ByCluster<bool> ClusterDefined{};
  int16_t DefinitionCounter = 0;
  UndoSnapshot Undo;

  /// The cluster for which new boundaries are drawn; 0 if none is chosen.
  int16_t CurrentCluster = 0;
  int16_t XParameter = 0;
  int16_t YParameter = 1;

  ByCluster<Colour> Colours{};
  ByCluster<Colour> ReferenceColours{};
  /// Whether points of a cluster are drawn, by cluster 0..30: see ShowClusters.
  ByCluster<bool> Display{};
  /// Clusters whose own display is off.
  ByCluster<bool> DisplayDisabled{};
  /// Clusters displayed as unclustered points.
  ByCluster<bool> DisplayAsZero{};
  bool AutomaticRedraw = true;
  float PointSize = 0.5F;
  bool RandomX = false;
  bool RandomY = false;
  bool WhiteBackground = false;
  /// Whether the clusters have colours that colour-blind users can tell apart.
  bool SafeColours = false;

  ByCluster<ClusterNote> Notes{};
  /// The text of the notes file as last read or written; empty if neither has happened.
  std::optional<std::string> NotesFile;
  /// If true, the cluster file writer writes only the current cluster, to the files that the analyses read.
  bool TemporaryMode = false;
};

/// True if a range of points is loaded. Code that uses points checks this first.
inline bool PointsLoaded(const Session& session) {
  return session.LoadStartRecord != 0 || session.LoadEndRecord != 0;
}

/// Two parameters: those of the horizontal and the vertical axis.
struct ParameterPair {
  int X = 0, Y = 1;
  bool operator==(const ParameterPair&) const = default;
};

inline ParameterPair PairOnView(const Session& session) {
  return {session.XParameter, session.YParameter};
}

inline ParameterPair PairOf(const Boundary& boundary) {
  return {boundary.XParameter, boundary.YParameter};
}

/// True if a boundary was drawn on the two displayed parameters, in this order.
inline bool OnView(const Session& session, const Boundary& boundary) {
  return PairOf(boundary) == PairOnView(session);
}

}  // namespace pallomir
