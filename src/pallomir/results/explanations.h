#pragma once

#include <string>

#include "pallomir/results/usage.h"
#include "pallomir/science/grid_map.h"

namespace pallomir {

// Why a plot is empty, in a sentence for the user; empty text when there is no reason.

/// No sample, none within the range, the animal lost in all of them, or no time between them.
std::string WhyNoTrack(const Positions& positions, const Track& track, const TimeRange& range);

/// No spike within the range, or none that fell on a sample.
std::string WhyNoSpikes(const Usage& usage, const TimeRange& range);

/// `correlation` of `map` has no value anywhere.
std::string WhyNoCorrelation(const Map& map, const Map& correlation);

}  // namespace pallomir
