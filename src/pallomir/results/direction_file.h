#pragma once

#include <string>
#include <string_view>

#include "pallomir/results/usage.h"
#include "pallomir/science/head_direction.h"

namespace pallomir {

/// A cell's tuning to direction and what a window says about it.
struct DirectionResult {
  DirectionTuning Tuning;
  bool OfTravel = false;  ///< the file holds no head directions: these are directions of travel
  Usage Used;
  std::string Explanation;  ///< why there is nothing to see; empty where there is
};

/// A text header of kind "HeadDirection", which also tells where directions are from ("head" or "travel") and the mean
/// vector, a line of column names, then a line for each bin, "from,to,spikes,dwell,rate". All or nothing; throws
/// CommandError when it cannot be written.
void WriteDirectionFile(const DirectionResult& result, std::string_view path);

/// Mean vector, coverage and peak are made from the rates again. Throws CommandError naming the line where the file is
/// not as above.
DirectionResult ReadDirectionFile(std::string_view path);

}  // namespace pallomir
