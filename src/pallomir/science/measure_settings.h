#pragma once

#include <cstdint>
#include <limits>

namespace pallomir {

/// Pixels per cm of a position file that does not say.
inline constexpr double kUsualPixelsPerCm = 4;
inline double ScaleOf(double pixelsPerCm) {
  return pixelsPerCm > 0 ? pixelsPerCm : kUsualPixelsPerCm;
}

/// How maps are made, and of which samples.
struct MapSettings {
  double BinCm = 2.5;           ///< side of a bin, rounded to whole pixels
  double SmoothingBins = 2;     ///< sigma of the Gaussian, in bins; 0 for none
  double MinimumOccupancy = 0;  ///< seconds; a bin with less has no rate
  /// Samples at which the animal was slower or faster, or its speed is not known, count as lost. The defaults keep all.
  double SlowestCm = 0, FastestCm = std::numeric_limits<double>::infinity();
  /// A position that the animal could only have reached faster than this from the last good one is taken as lost.
  double JumpCm = std::numeric_limits<double>::infinity();

  bool EverySpeed() const { return SlowestCm <= 0 && FastestCm == std::numeric_limits<double>::infinity(); }
  bool operator==(const MapSettings&) const = default;
};

struct DirectionSettings {
  int Bins = 60;
  double SmoothingDegrees = 6;  ///< sigma of the Gaussian; 0 for none
  bool operator==(const DirectionSettings&) const = default;
};

/// Of cross-correlograms.
struct CorrelogramSettings {
  double WindowMs = 50;  ///< on either side
  double BinMs = 1;
  bool operator==(const CorrelogramSettings&) const = default;
};

/// Of the comparison with chance.
struct ChanceSettings {
  int Shifts = 1000;
  uint64_t Seed = 1;
  bool operator==(const ChanceSettings&) const = default;
};

/// The choices behind the measures of a cell.
struct MeasureSettings {
  MapSettings Map;
  DirectionSettings Direction;
  CorrelogramSettings Correlogram;
  ChanceSettings Chance;
  bool operator==(const MeasureSettings&) const = default;
};

}  // namespace pallomir
