#pragma once

#include <cstdint>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Throws ProgramEnd unless the VideoSampling file in the parent of the data directory contains 30 or 60.
void CheckVideoSampling(const Session& session);

/// Replaces the point table and the loaded range by rows `first`..`last` (0-based, inclusive) of the session's
/// parameter file. The first load of the run also widens the data and axis ranges of every parameter to the values
/// read. The memory of the former points is released before the new ones are allocated; if a load fails, the former
/// points are read again, so that the state is as before. If that also fails (or is stopped), no points are loaded
/// afterwards, and the error message says so, or the session log if the user stopped it. While loading, the session has
/// no points.
///
/// Rows with values that are not finite, and an incomplete last row (its missing values are 0), are reported in the
/// session log.
///
/// Throws ProgramEnd (VideoSampling), Interrupted, and CommandError for a range of fewer than 6 rows or beyond the
/// file, for lack of memory, and for a file that was replaced since it was opened: the session's record count is then
/// that of the new file.
void ReadPoints(Session& session, World& world, int32_t first, int32_t last);

}  // namespace pallomir
