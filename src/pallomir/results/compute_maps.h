#pragma once

#include <filesystem>
#include <string_view>

#include "pallomir/results/map_file.h"
#include "pallomir/session/world.h"

namespace pallomir {

// `track` is TrackOver() of `positions` within the range, by the same settings. If a result is empty, its explanation
// says why.

/// The rate map of the spikes over the positions.
MapResult RateMapOf(const Positions& positions, const Track& track, const SpikeTimes& spikes,
                    const MeasureSettings& settings = {});

/// The seconds spent in every bin.
MapResult OccupancyMapOf(const Positions& positions, const Track& track, const TimeRange& range,
                         const MeasureSettings& settings = {});

// The same from files, by the settings beside them (measure_settings_file.h). Each writes its result to a file, all or
// nothing, and returns it. They throw CommandError if a file cannot be read or written, Interrupted when the user stops
// them.

/// The rate map of the spikes of `timeFile`, within the time range of `clusterFile`, over the positions.
MapResult ComputeRateMap(World& world, const std::filesystem::path& clusterFile, const std::filesystem::path& timeFile,
                         const std::filesystem::path& positionFile, const std::filesystem::path& outputFile);

/// The seconds spent in every bin within the time range of `clusterFile`.
MapResult ComputeOccupancyMap(World& world, const std::filesystem::path& clusterFile,
                              const std::filesystem::path& positionFile, const std::filesystem::path& outputFile);

/// The autocorrelation of a rate map; its file has the same name with the extension ".2DAcorr".
MapResult ComputeSpatialAutoCorr(World& world, const std::filesystem::path& rateMapFile);

}  // namespace pallomir
