#pragma once

#include <functional>

#include "session/world.h"

namespace pallomir {

/// Runs a command of a form and shows the user what ended it, if anything did: false then. What ends the program, and
/// the user's own wish to stop, are the caller's.
bool RunCommand(World& world, const std::function<void()>& command);

}  // namespace pallomir
