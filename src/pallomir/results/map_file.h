#pragma once

#include <string>
#include <string_view>

#include "pallomir/results/usage.h"
#include "pallomir/science/grid_map.h"

namespace pallomir {

enum class MapKind { Rate, Occupancy, SpatialAutocorrelation };

/// A map and what a window says about it.
struct MapResult {
  MapKind Kind = MapKind::Rate;
  Map Grid;                        ///< spikes a second, seconds (0 where the animal never was), or Pearson's r
  double PixelsPerCm = 0;          ///< 0 where it is not known
  double MeanRate = kNotKnown;     ///< of a rate map; spikes a second
  double Information = kNotKnown;  ///< of a rate map; bits a spike, NaN when there is no spike
  Usage Used;
  std::string Explanation;  ///< why there is nothing to see; empty where there is
};

/// "spikes/s", "s" or "r".
std::string_view UnitOf(MapKind kind);

/// A text header of kind "RateMap", "OccupancyMap" or "SpatialAutoCorr" with what is not the map itself, a line
/// "columns,rows,left,top,bin,unit" (its values), then a line for each row of bins, the smallest y first. All or
/// nothing; throws CommandError when it cannot be written.
void WriteMapFile(const MapResult& result, std::string_view path);

/// Throws CommandError naming the line where the file is not as above.
MapResult ReadMapFile(std::string_view path);

}  // namespace pallomir
