#pragma once

#include <filesystem>
#include <string_view>

#include "pallomir/results/direction_file.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The spikes' tuning to head direction or, if the positions have no directions, to the direction of travel above 5
/// cm/s (20 pixels/s if the scale is unknown). `track` is TrackOver() of `positions` within the time range of the
/// spikes, by the same settings. If the result is empty, its explanation says why.
DirectionResult DirectionOf(const Positions& positions, const Track& track, const SpikeTimes& spikes,
                            const MeasureSettings& settings = {});

/// The same for the spikes of `timeFile` within the time range of `clusterFile`. Writes the result to the file
/// `timeFile` + ".dir", all or nothing, and returns it. Throws CommandError if a file cannot be read or written,
/// Interrupted when the user stops it.
DirectionResult ComputeDirection(World& world, const std::filesystem::path& timeFile,
                                 const std::filesystem::path& positionFile, const std::filesystem::path& clusterFile);

}  // namespace pallomir
