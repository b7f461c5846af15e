#pragma once

#include <string_view>

#include "pallomir/results/direction_file.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The tuning of the spikes to the direction of the head; where the positions have no directions, to the direction of
/// travel above 5 cm/s (20 pixels/s where the scale is not known). `track` is that of `positions` within the range of
/// the spikes. What is merely empty is explained in the result.
DirectionResult DirectionOf(const Positions& positions, const Track& track, const SpikeTimes& spikes);

/// That of the spikes of `timeFile` within the time range of `clusterFile`. Writes the file `timeFile` + ".dir", all or
/// nothing, and returns what stands there. Throws CommandError when a file cannot be read or written, and Interrupted
/// when the user stops it.
DirectionResult ComputeDirection(World& world, std::string_view timeFile, std::string_view positionFile,
                                 std::string_view clusterFile);

}  // namespace pallomir
