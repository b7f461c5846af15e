#pragma once

#include <cstdint>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Throws ProgramEnd unless the VideoSampling file beside the data directory holds 30 or 60.
void CheckVideoSampling(const Session& session);

/// Replaces the point table and the loaded range by rows `first`..`last` (0-based, inclusive) of the session's
/// parameter file and, on the first load of the run, widens the data and axis ranges of every parameter to hold the
/// values met. The memory of the former points is given back before the new ones take theirs; when a load ends early,
/// the former points are read again, so that all is as it was. Only where that fails too (or is stopped) no points are
/// loaded afterwards, and the sentence says so, in the session log where the user stopped it. Meanwhile the session
/// holds no points.
///
/// Rows with values that are not finite, and a last row that the file holds only in part (the missing values are 0),
/// are reported in the session log.
///
/// Throws ProgramEnd (VideoSampling), CommandError (a range of fewer than 6 rows or beyond the file, no memory, a file
/// that has been replaced since it was opened: the session's record count is then that of the new one) and Interrupted.
void ReadPoints(Session& session, World& world, int32_t first, int32_t last);

}  // namespace pallomir
