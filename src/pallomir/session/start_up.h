#pragma once

#include <string_view>

#include "pallomir/session/session.h"

namespace pallomir {

/// Applies the name rule to `path`, finds its header and counts its rows into `session`. Throws ProgramEnd when the
/// name is refused, CommandError when the file cannot be read or is not a parameter file.
void OpenParameterFile(Session& session, std::string_view path);

/// The state in which a run begins: every cluster displayed, every axis maximum 100, MPeak-1 against MPeak-2.
void InitialiseSession(Session& session);

}  // namespace pallomir
