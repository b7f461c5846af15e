#pragma once

#include <filesystem>
#include <optional>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// Opens a parameter file, loads its records `from` to `to` (all without them) and cuts them by a boundaries file, as
/// the windows do. Throws CommandError if a file cannot be used, Interrupted when `progress` asks for it.
void OpenCut(Session& session, const std::filesystem::path& recording, const std::filesystem::path& boundaries,
             std::optional<int64_t> from, std::optional<int64_t> to, const Progress& progress);

}  // namespace pallomir
