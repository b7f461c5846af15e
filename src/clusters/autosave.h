#pragma once

#include <optional>
#include <string>

#include "session/session.h"

namespace pallomir {

/// The autosaved boundaries file; BoundariesFilePath with the name "cbfile.tmp".
std::string AutosavePath(const Session& session);

/// True when the boundaries are to be saved at `now`, having been saved at `last` (seconds since midnight): after more
/// than 300 seconds, and on every check in the first 300 seconds of a day, when the clock has started again.
bool AutosaveDue(float now, float last);

/// When the data directory was last autosaved, as local date and time, if that file holds boundaries and is newer than
/// every other boundaries file there; else nothing.
std::optional<std::string> UnclaimedAutosave(const Session& session);

}  // namespace pallomir
