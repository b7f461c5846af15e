#pragma once

#include <functional>

#include "pallomir/session/session.h"

namespace pallomir {

/// Runs a change of the cut. When the user stops it, boundaries, marks, names and lists are as they were before, and
/// Interrupted is passed on.
void ChangeCut(Session& session, const std::function<void()>& change);

}  // namespace pallomir
