#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <string>

#include "pallomir/files/error.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Runs a command of a form and shows the error, if any: returns false then. Exceptions that end the program and the
/// user's stop are left to the caller.
bool RunCommand(World& world, const std::function<void()>& command);

/// Runs a part of a command whose errors, or those of one kind, are shown under the title "ERROR".
void UnderErrorTitle(const std::function<void()>& part, std::optional<ErrorKind> kind = {});

/// Shows an error under the title that the part of the command, or its kind, gives it.
void ShowError(World& world, const CommandError& error);

/// The text of an exception for the user.
std::string SentenceOf(const std::exception& error);

}  // namespace pallomir
