#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "pallomir/science/tracking.h"

namespace pallomir {

/// A picture of square bins. Bin (row, column) is the half-open cell of pixels from Left + column * Bin and
/// Top + row * Bin; row 0 has the smallest y.
struct Map {
  int Columns = 0;
  int Rows = 0;
  double Left = 0;             ///< pixels
  double Top = 0;              ///< pixels
  double Bin = 0;              ///< pixels
  std::vector<double> Values;  ///< row after row; NaN where there is none

  size_t Index(int row, int column) const { return static_cast<size_t>(row) * Columns + column; }
  double At(int row, int column) const { return Values[Index(row, column)]; }
};

inline constexpr double kBinPixels = 10;
inline constexpr double kBinCm = 2.5;
inline constexpr double kSmoothingBins = 2;  ///< sigma
/// More bins than a map of any arena has: a place far off, not a larger arena, is what asks for more.
inline constexpr double kMostBins = 250'000;

/// The side of a bin: kBinPixels, or kBinCm rounded to whole pixels, at least one, where the scale is known (not 0).
double BinSize(double pixelsPerCm);

/// The seconds that the animal spent in each bin: the sum of the holds of its samples, over all bins from the outermost
/// placed samples on; without any the map has no bins. Throws CommandError where that makes more than kMostBins.
Map OccupancyMap(const Track& track, double bin);

/// How many spikes fell into each bin of `occupancy`, which has been made of the same track. `samples` is as
/// SamplesOfSpikes gives it; spikes of no sample, or of one without a place, are not mapped.
struct SpikeMap {
  Map Counts;
  int64_t Mapped = 0;
};
SpikeMap CountSpikes(const Track& track, std::span<const int64_t> samples, const Map& occupancy);

/// The weights -r..r of a Gaussian of `sigma` bins, r = int(4 sigma + 0.5); their sum is 1.
std::vector<double> GaussianWeights(double sigma);

/// The map under a Gaussian of kSmoothingBins, zeros around it.
Map Smoothed(const Map& map);

/// Spikes a second: smoothed counts over smoothed occupancy, NaN where the animal never was (Leutgeb et al. 2005,
/// Science 309:619; the smoothed histogram that Grieves 2023, PLoS Computational Biology, recommends).
Map RateMap(const Map& counts, const Map& occupancy);

/// The highest value of a map and its bin; NaN when no bin has one.
struct MapPeak {
  double Value = std::numeric_limits<double>::quiet_NaN();
  int Row = -1;
  int Column = -1;
};
MapPeak PeakOf(const Map& map);

/// The rate over all the time spent in visited bins, m = sum p r, where p is the bin's share of the occupancy; NaN
/// without any.
double MeanRate(const Map& rate, const Map& occupancy);

/// Bits a spike, sum p (r / m) log2(r / m) over visited bins; NaN when the cell never fired (Skaggs et al. 1993,
/// Advances in Neural Information Processing Systems 5).
double SpatialInformation(const Map& rate, const Map& occupancy);

}  // namespace pallomir
