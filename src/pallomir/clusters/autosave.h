#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// Path of the autosaved boundaries file: BoundariesFilePath for "cbfile.tmp".
std::filesystem::path AutosavePath(const Session& session);

/// Whether to save the boundaries at `now` if they were last saved at `last` (seconds since midnight): after more than
/// 300 seconds, and at every check in the first 300 seconds of a day, when the seconds restart from 0.
bool AutosaveDue(float now, float last);

/// A boundaries file in the data directory.
struct FoundCut {
  /// The name as shown in the text boxes, without ".txt".
  std::string Name;
  /// Local date and time.
  std::string Written;
};

/// The newest of all boundaries files with at least one boundary, whoever wrote it; empty if that is the file called
/// `name` or has the same boundaries.
std::optional<FoundCut> NewerCutThan(const Session& session, std::string_view name);

/// Called before the exit copy or the autosave is replaced if this run has neither read nor written it. If the file is
/// newer than every boundaries file written by the user, and no other file has the same boundaries, it is renamed to
/// keep it; returns the new name as shown in the text boxes. Throws CommandError if renaming fails.
std::optional<std::string> KeepUnreadCut(const Session& session, const std::filesystem::path& path);

/// Names of the files kept in this way, as shown in the text boxes, oldest first.
std::vector<std::string> KeptCuts(const Session& session);

}  // namespace pallomir
