#pragma once

#include <cstdint>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Loads records start..end (inclusive) and classifies clusters 1..30 in order. Throws CommandError when the range is
/// turned round or both ends are 0, and whatever ReadPoints throws; the session is then as it was. Interrupted while it
/// classifies, it leaves no range loaded, and the boundaries as they were.
void LoadPoints(Session& session, World& world, int32_t start, int32_t end);

/// Gives the loaded range up: it is 0 to 0 then, which is one row, and of the points the first one stays.
void GiveUpRange(Session& session);

}  // namespace pallomir
