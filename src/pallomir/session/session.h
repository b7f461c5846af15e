#pragma once

#include <array>
#include <cstdint>
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
  std::string Path;
  long HeaderLength = 0;
  int64_t RecordCount = 0;
};

/// What the user thinks of a cluster.
struct ClusterNote {
  /// The cluster's own number once it has been graded; 0 before.
  int16_t Number = 0;
  /// One of the names of the scale, or empty.
  std::string Rating;
  std::string Remarks;
  bool operator==(const ClusterNote&) const = default;
};

/// All that the forms share: one instance, made in main() and passed by reference. Data only.
struct Session {
  ParameterFile File;
  std::string DataDirectory;

  /// The loaded rows: none before the first load, then one for each record of the range. What goes through them goes
  /// by Points.Rows(), and so by the range.
  PointTable Points;
  /// The range, bounds included. 0 and 0 is that of no load: of one that was given up a row stays.
  int32_t LoadStartRecord = 0;
  int32_t LoadEndRecord = 0;
  /// On from start-up until the first load has ended.
  bool FirstLoad = true;

  ByParameter<std::string> ParameterNames = ParameterCatalogue();
  ByParameter<float> DataMinimum{};
  ByParameter<float> DataMaximum{};
  ByParameter<float> AxisMinimum{};
  ByParameter<float> AxisMaximum{};

  /// First and last spike of each epoch, as the search found them: stamps in microseconds and record numbers.
  ByEpoch<double> EpochStartTimestamp{};
  ByEpoch<int32_t> EpochStartRecord{};
  ByEpoch<double> EpochEndTimestamp{};
  ByEpoch<int32_t> EpochEndRecord{};

  /// On while the points of several epochs are loaded, of which only the ticked ones may be on view.
  bool MultipleEpochs = false;

  BoundaryTable Clusters{};
  /// The cluster-defined mark, by cluster.
  ByCluster<bool> ClusterDefined{};
  int16_t DefinitionCounter = 0;
  UndoSnapshot Undo;

  /// The cluster that new boundaries are drawn for; 0 while none is chosen.
  int16_t CurrentCluster = 0;
  int16_t XParameter = 0;
  int16_t YParameter = 1;

  ByCluster<Colour> Colours{};
  ByCluster<Colour> ReferenceColours{};
  /// Whether points of a cluster are drawn, by cluster 0..30: see ShowClusters.
  ByCluster<bool> Display{};
  /// Clusters whose own display is switched off.
  ByCluster<bool> DisplayDisabled{};
  /// Clusters that are shown as unclustered points are.
  ByCluster<bool> DisplayAsZero{};
  bool AutomaticRedraw = true;
  float PointSize = 0.5F;
  bool RandomX = false;
  bool RandomY = false;
  bool WhiteBackground = false;

  ByCluster<ClusterNote> Notes{};
  /// The text of the notes file as it was last read or written; nothing while it has been neither.
  std::optional<std::string> NotesFile;
  /// While on, the cluster file writer writes the current cluster alone, to the files that the analyses read.
  bool TemporaryMode = false;
};

/// True while a range of points is loaded. What looks at points asks this before it starts.
inline bool PointsLoaded(const Session& session) {
  return session.LoadStartRecord != 0 || session.LoadEndRecord != 0;
}

/// True when a boundary was drawn on the two parameters that are on view, in this order.
inline bool OnView(const Session& session, const Boundary& boundary) {
  return boundary.XParameter == session.XParameter && boundary.YParameter == session.YParameter;
}

}  // namespace pallomir
