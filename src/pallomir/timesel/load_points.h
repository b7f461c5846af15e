#pragma once

#include <cstdint>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Loads records start..end (inclusive) and classifies clusters 1..30 in order. Throws CommandError if start > end or
/// both are 0, and whatever ReadPoints throws; the session is then unchanged. If interrupted while classifying, no
/// range is loaded afterwards; the boundaries are unchanged.
void LoadPoints(Session& session, World& world, int32_t start, int32_t end);

/// Unloads the range: it becomes 0 to 0, and only the first point is kept.
void GiveUpRange(Session& session);

}  // namespace pallomir
