#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/results/usage.h"
#include "pallomir/science/behaviour/head_direction.h"

namespace pallomir {

/// A cell's tuning to direction, with the figures shown in its window.
struct DirectionResult {
  DirectionTuning Tuning;
  bool OfTravel = false;  ///< the position file has no head directions: these are directions of travel
  Usage Used;
  std::string Explanation;  ///< why the plot is empty; otherwise empty
};

/// Writes a text header of kind "HeadDirection", which also states the source of the directions ("head" or "travel")
/// and the mean vector, a line of column names, then a line for each bin, "from,to,spikes,dwell,rate". All or nothing;
/// throws CommandError if it cannot be written.
void WriteDirectionFile(const DirectionResult& result, const std::filesystem::path& path);

/// Reads such a file; mean vector, coverage and peak are recomputed from the rates. Throws CommandError naming the
/// malformed line.
DirectionResult ReadDirectionFile(const std::filesystem::path& path);

}  // namespace pallomir
