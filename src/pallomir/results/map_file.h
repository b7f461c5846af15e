#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/results/usage.h"
#include "pallomir/science/behaviour/grid_map.h"

namespace pallomir {

enum class MapKind { Rate, Occupancy, SpatialAutocorrelation };

/// A map, with the figures shown in its window.
struct MapResult {
  MapKind Kind = MapKind::Rate;
  Map Grid;                        ///< spikes per second, seconds (0 in unvisited bins), or Pearson's r
  double PixelsPerCm = 0;          ///< 0 if unknown
  double MeanRate = kNotKnown;     ///< of a rate map; spikes per second
  double Information = kNotKnown;  ///< of a rate map; bits per spike, NaN without spikes
  Usage Used;
  std::string Explanation;  ///< why the map is empty; otherwise empty
};

/// "spikes/s", "s" or "r".
std::string_view UnitOf(MapKind kind);

/// Writes a text header of kind "RateMap", "OccupancyMap" or "SpatialAutoCorr" with everything but the map itself, a
/// line "columns,rows,left,top,bin,unit" (its values), then a line for each row of bins, smallest y first. All or
/// nothing; throws CommandError if it cannot be written.
void WriteMapFile(const MapResult& result, const std::filesystem::path& path);

/// Throws CommandError naming the malformed line.
MapResult ReadMapFile(const std::filesystem::path& path);

}  // namespace pallomir
