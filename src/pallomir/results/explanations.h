#pragma once

#include <string>

#include "pallomir/results/usage.h"
#include "pallomir/science/behaviour/grid_map.h"

namespace pallomir {

// Each returns a sentence for the user on why a plot is empty, or an empty text if it is not.

/// No sample, none within the range, the animal lost in all of them, or no time between them.
std::string WhyNoTrack(const Positions& positions, const Track& track, const TimeRange& range);

/// No spike within the range, or none on a usable sample.
std::string WhyNoSpikes(const Usage& usage, const TimeRange& range);

/// No value anywhere in `correlation`, the autocorrelation of `map`.
std::string WhyNoCorrelation(const Map& map, const Map& correlation);

}  // namespace pallomir
