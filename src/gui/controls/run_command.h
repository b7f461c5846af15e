#pragma once

#include <exception>
#include <functional>
#include <string>

#include "pallomir/session/world.h"

namespace pallomir {

/// Runs a command of a form and shows the user what ended it, if anything did: false then. What ends the program, and
/// the user's own wish to stop, are the caller's.
bool RunCommand(World& world, const std::function<void()>& command);

/// What a user reads of an exception.
std::string SentenceOf(const std::exception& error);

}  // namespace pallomir
