#pragma once

#include <filesystem>
#include <string_view>

#include "pallomir/results/train_file.h"
#include "pallomir/session/world.h"

namespace pallomir {

// Each writes its result to a file, all or nothing, and returns it. They throw CommandError if a file cannot be read or
// written, Interrupted when the user stops them. If a result is empty, its explanation says why.

/// The autocorrelation of the spikes of `timeFile` within the time range of `clusterFile`.
AutocorrelationResult ComputeAutoCorr(World& world, const std::filesystem::path& clusterFile,
                                      const std::filesystem::path& timeFile, const std::filesystem::path& outputFile);

/// The histogram of their intervals on a logarithmic scale.
IntervalResult ComputeLogISI(World& world, const std::filesystem::path& clusterFile,
                             const std::filesystem::path& timeFile, const std::filesystem::path& outputFile);

}  // namespace pallomir
