#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/science/behaviour/grid_map.h"
#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measured.h"

namespace pallomir {

/// A firing field of a rate map: bins joined by their sides.
struct Field {
  std::vector<size_t> Bins;  ///< indices into the map's values, ascending
  double Area = 0;           ///< cm2
  double X = 0, Y = 0;       ///< centre, cm from the map's upper left corner: bin centres weighted with their rates
  double Peak = 0;           ///< spikes per second
  double Rate = 0;           ///< spikes over seconds in the field, not smoothed
};

/// What a rate map tells. r is the smoothed rate, p the bin's share of the occupancy, m = sum p r.
struct PlaceMeasures {
  int64_t SpikesUsed = 0;
  Measured BitsPerSpike;   ///< sum p (r / m) log2(r / m) (Skaggs et al. 1993)
  Measured BitsPerSecond;  ///< the same times m
  Measured Sparsity;       ///< m^2 / sum p r^2 (Skaggs et al. 1996, Hippocampus 6:149)
  Measured Selectivity;    ///< highest r / m
  Measured Coherence;      ///< see CoherenceOf
  Measured PeakRate, MeanRate;
  std::vector<Field> Fields;  ///< by descending peak
  Measured Border;            ///< see BorderScore
};

/// `counts` and `occupancy` are not smoothed; `rate` is the RateMap of both.
PlaceMeasures PlaceMeasuresOf(const Map& counts, const Map& occupancy, const Map& rate, int64_t spikesUsed,
                              double pixelsPerCm);

/// atanh of the correlation between the rate of a bin, not smoothed, and the mean of that of the visited among its 8
/// neighbours (Kubie, Muller and Bostock 1990, J Neurosci 10:1110).
Measured CoherenceOf(const Map& counts, const Map& occupancy, const Map& rate);

/// Fields of at least 9 bins at 0.2 of the highest rate or more, with a peak of at least 1 spike per second.
std::vector<Field> FieldsOf(const Map& counts, const Map& occupancy, const Map& rate, double pixelsPerCm);

/// How much a cell fires along a wall, -1 to 1 (Solstad et al. 2008, Science 322:1865): (c - d) / (c + d). c is the
/// largest share of a wall that a field covers; d the mean distance of the fields from the nearest wall, weighted with
/// the rate, over half the shorter side. Fields: above 0.3 of the highest rate, at least 200 cm2. The walls are the
/// sides of the map; a wall's bin is the first visited one within 8 of it.
Measured BorderScore(const Map& rate, double pixelsPerCm);

/// Two rate maps of different parts of the time: for a spike train, how alike they are.
class Stability {
 public:
  /// By which half of the loaded time a sample is in, or by the parity of its minute.
  enum class Split { Halves, Minutes };

  /// Which of the two a sample with this stamp is in: 0 or 1.
  static uint8_t SideOf(Split split, int64_t stamp, const LoadedTime& time);

  /// `bins` is BinsOfSamples() on `frame`.
  Stability(Split split, const Track& track, std::span<const int32_t> bins, const Map& frame, const LoadedTime& time,
            const MapSettings& settings);

  /// The correlation of the two maps over the bins visited in both; `samples` has the sample of each spike, or -1.
  Measured Of(std::span<const int64_t> samples) const;

 private:
  struct Side {
    Map Occupancy, Smooth;
  };
  std::span<const int32_t> bins_;
  MapSettings settings_;
  std::vector<uint8_t> side_;  ///< of each sample: 0 or 1
  Side sides_[2];
};

}  // namespace pallomir
