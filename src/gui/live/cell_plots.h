#pragma once

#include <array>
#include <memory>
#include <string>

#include "gui/viewers/plot_style.h"
#include "pallomir/live/live_cut.h"

class QCustomPlot;

namespace pallomir {

/// One of the pictures of a cell.
struct CellPlot {
  const char* Name;     ///< object name
  const char* Caption;  ///< "Rate map"
  const char* Meaning;  ///< a sentence for the user
  MeasurePart Part;     ///< of which it is drawn
  /// Draws it; says why if there is nothing to draw.
  void (*Draw)(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut& cut, const PlotStyle& style);

  /// What a drawing is made from: it is out of date if this has changed.
  struct Source {
    int Cluster = 0;
    std::shared_ptr<const void> Data, MoreData;
    std::string Why;
    bool operator==(const Source&) const = default;
  };
  Source SourceOf(const LiveCluster& cluster, const LiveCut& cut) const;
};

inline constexpr int kCellPlots = 8;
extern const std::array<CellPlot, kCellPlots> kPlotsOfCell;
/// The index of the one that is only computed on request.
inline constexpr int kSpatialLagsPlot = 7;

}  // namespace pallomir
