#pragma once

#include <cstdint>

#include "session/session.h"
#include "session/world.h"

namespace pallomir {

/// Throws ProgramEnd unless the VideoSampling file beside the data directory holds 30 or 60.
void CheckVideoSampling(const Session& session);

/// Replaces the point table and the loaded range by rows `first`..`last` (0-based, inclusive) of the session's
/// parameter file and, on the first load of the run, widens the data and axis ranges of every parameter to hold the
/// values met. All or nothing: when it throws, the points loaded before are as they were.
///
/// Rows with values that are not finite, and a last row that the file holds only in part (the missing values are 0),
/// are reported in the session log.
///
/// Throws ProgramEnd (VideoSampling), CommandError (a range of fewer than 6 rows or beyond the file, no memory) and
/// Interrupted.
void ReadPoints(Session& session, World& world, int32_t first, int32_t last);

}  // namespace pallomir
