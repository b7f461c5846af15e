#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "pallomir/science/behaviour/tracking.h"
#include "pallomir/science/measure_settings.h"

namespace pallomir {

/// A map of square bins. Bin (row, column) is the half-open square of pixels from Left + column * Bin and Top + row *
/// Bin; row 0 has the smallest y.
struct Map {
  int Columns = 0;
  int Rows = 0;
  double Left = 0;             ///< pixels
  double Top = 0;              ///< pixels
  double Bin = 0;              ///< pixels
  std::vector<double> Values;  ///< row-major; NaN where a bin has no value

  size_t Index(int row, int column) const { return static_cast<size_t>(row) * Columns + column; }
  double At(int row, int column) const { return Values[Index(row, column)]; }
};

/// More bins than any arena needs: a larger map is caused by an outlying position, not by a larger arena.
inline constexpr double kMostBins = 250'000;

/// The side of a bin in pixels: settings.BinCm rounded to whole pixels, at least 1. `pixelsPerCm` is 0 if unknown.
double BinSize(double pixelsPerCm, const MapSettings& settings = {});

/// Seconds spent in each bin: the sum of the holds of its samples. The map covers the extent of the samples that have a
/// position; without any it has no bins. Throws CommandError if there would be more than kMostBins.
Map OccupancyMap(const Track& track, double bin);

/// The number of spikes in each bin of `occupancy`, which must be made from the same track. `samples` is the result of
/// SamplesOfSpikes; spikes without a sample, or with a sample without a position, are not mapped.
struct SpikeMap {
  Map Counts;
  int64_t Mapped = 0;
};
SpikeMap CountSpikes(const Track& track, std::span<const int64_t> samples, const Map& occupancy);

/// The bin of each sample as an index into the values of `frame`, a map of the same track; -1 without a position.
std::vector<int32_t> BinsOfSamples(const Track& track, const Map& frame);

/// The weights -r..r of a Gaussian with a sigma of `sigma` bins, r = int(4 sigma + 0.5); they add up to 1. A sigma of 0
/// has the single weight 1.
std::vector<double> GaussianWeights(double sigma);

/// The map smoothed with a Gaussian of sigma settings.SmoothingBins, with zeros beyond its edges.
Map Smoothed(const Map& map, const MapSettings& settings = {});

/// Whether a bin with so many seconds has a rate.
inline bool IsVisited(double seconds, const MapSettings& settings) {
  return seconds > 0 && seconds >= settings.MinimumOccupancy;
}

/// Spikes per second: smoothed counts over smoothed occupancy, NaN in bins that were not visited (Leutgeb et al. 2005,
/// Science 309:619; the smoothed histogram recommended by Grieves 2023, PLoS Computational Biology).
Map RateMap(const Map& counts, const Map& occupancy, const MapSettings& settings = {});
/// The same from occupancy that is smoothed already.
Map RateMap(const Map& counts, const Map& occupancy, const Map& smoothOccupancy, const MapSettings& settings);

/// The highest value of a map and its bin; NaN if no bin has a value.
struct MapPeak {
  double Value = std::numeric_limits<double>::quiet_NaN();
  int Row = -1;
  int Column = -1;
};
MapPeak PeakOf(const Map& map);

/// The mean rate over the bins with a rate, m = sum p r, where p is the bin's share of their occupancy; NaN without
/// any.
double MeanRate(const Map& rate, const Map& occupancy);

/// Bits per spike, sum p (r / m) log2(r / m) over the bins with a rate; NaN if the cell never fired (Skaggs et al.
/// 1993, Advances in Neural Information Processing Systems 5).
double SpatialInformation(const Map& rate, const Map& occupancy);

}  // namespace pallomir
