#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "pallomir/science/behaviour/grid_map.h"
#include "pallomir/science/measured.h"

namespace pallomir {

/// How hexagonal the fields of a cell are, from the spatial autocorrelogram of its rate map.
struct GridMeasures {
  /// The smaller correlation of a ring of the autocorrelogram with itself rotated by 60 and 120 degrees, minus the
  /// largest of those by 30, 90 and 150 (Sargolini et al. 2006). The ring leaves out the central peak; the score is the
  /// highest over outer radii (Langston et al. 2010, Science 328:1576).
  Measured Score;
  Measured Spacing;      ///< median distance of the three nearest peaks, cm
  Measured Orientation;  ///< degrees in (-90, 90], counter-clockwise: of the axis closest to horizontal
  Measured Ellipticity;  ///< longer over shorter axis of the ellipse through the six nearest peaks
};

/// Measures autocorrelograms of maps of one size, as SpatialAutocorrelation() makes them. Where each bin comes from in
/// the rotated copies is computed once.
class GridAnalysis {
 public:
  /// `rows` and `columns` of the rate maps.
  GridAnalysis(int rows, int columns);

  Measured ScoreOf(const Map& autocorrelogram) const;
  GridMeasures MeasuresOf(const Map& autocorrelogram, double pixelsPerCm) const;

 private:
  static constexpr int kAngles = 5;  // 30, 60, ... 150 degrees
  /// Up to four bins of the autocorrelogram and their weights; none if a part lies outside.
  struct Source {
    std::array<uint32_t, 4> Bins{};
    std::array<double, 4> Weights{};
    int Count = 0;
    /// The interpolated value; NaN if a part lies outside or is not known.
    double In(const Map& map) const;
  };
  /// A bin of the autocorrelogram at a squared distance from its middle.
  struct RingBin {
    int Squared;
    uint32_t Bin;
    std::array<Source, kAngles> Rotated;
  };
  Source SourceOf(double row, double column) const;

  int rows_, columns_;         ///< of the autocorrelogram
  int shorter_;                ///< bins of the rate map's shorter side
  std::vector<RingBin> ring_;  ///< by distance
};

}  // namespace pallomir
