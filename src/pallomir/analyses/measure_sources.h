#pragma once

#include <filesystem>

#include "pallomir/results/measure_clusters.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// What the clusters of the loaded points are measured from: the recording's spike file, a position file, the time from
/// the first to the last loaded spike, and the settings in the data directory. Throws CommandError if these cannot be
/// read.
MeasureSources SourcesOf(const Session& session, const std::filesystem::path& positionFile, bool chance);

}  // namespace pallomir
