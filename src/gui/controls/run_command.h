#pragma once

#include <exception>
#include <functional>
#include <string>

#include "pallomir/session/world.h"

namespace pallomir {

/// Runs a command of a form and shows the error, if any: returns false then. Exceptions that end the program and the
/// user's stop are left to the caller.
bool RunCommand(World& world, const std::function<void()>& command);

/// The text of an exception for the user.
std::string SentenceOf(const std::exception& error);

}  // namespace pallomir
