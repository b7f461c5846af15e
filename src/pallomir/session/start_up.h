#pragma once

#include <filesystem>
#include <string_view>

#include "pallomir/session/session.h"

namespace pallomir {

/// Checks the name of the parameter file `path`, and sets its header length and row count in `session`. Throws
/// ProgramEnd if the name is refused, CommandError if the file cannot be read or is not a parameter file.
void OpenParameterFile(Session& session, const std::filesystem::path& path);

/// The parameter file that the user means by `path`: the file itself, or the only one in a folder. Throws CommandError
/// if it is neither.
std::filesystem::path RecordingAt(const std::filesystem::path& path);

/// Sets the initial state of a run: every cluster displayed, every axis maximum 100, MPeak-1 against MPeak-2.
void InitialiseSession(Session& session);

}  // namespace pallomir
