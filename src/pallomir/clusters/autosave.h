#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// The autosaved boundaries file; BoundariesFilePath with the name "cbfile.tmp".
std::string AutosavePath(const Session& session);

/// True when the boundaries are to be saved at `now`, having been saved at `last` (seconds since midnight): after more
/// than 300 seconds, and on every check in the first 300 seconds of a day, when the clock has started again.
bool AutosaveDue(float now, float last);

/// A boundaries file of the data directory.
struct FoundCut {
  /// As the boxes have it, without ".txt".
  std::string Name;
  /// Local date and time.
  std::string Written;
};

/// The newest of all boundaries files that hold a boundary, whoever wrote them, unless it is the one called `name` or
/// holds the same boundaries.
std::optional<FoundCut> NewerCutThan(const Session& session, std::string_view name);

/// Before the exit copy or the autosave, which this run neither read nor wrote, is replaced: when it is newer than
/// every boundaries file that the user wrote, and no other holds the same boundaries, it is kept under a further name,
/// which is returned as the boxes have it. Throws CommandError when that fails.
std::optional<std::string> KeepUnreadCut(const Session& session, std::string_view path);

/// The cuts that were kept so, as the boxes have them, oldest first.
std::vector<std::string> KeptCuts(const Session& session);

}  // namespace pallomir
