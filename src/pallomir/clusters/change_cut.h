#pragma once

#include <functional>

#include "pallomir/session/session.h"

namespace pallomir {

/// Runs a change of the cut. If the user stops it, restores the boundaries, marks, names and lists, and rethrows
/// Interrupted.
void ChangeCut(Session& session, const std::function<void()>& change);

}  // namespace pallomir
