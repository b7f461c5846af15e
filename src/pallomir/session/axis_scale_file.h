#pragma once

#include <filesystem>

#include "pallomir/session/session.h"

namespace pallomir {

/// The path of the axis range file in the data directory: 134 lines "maximum,minimum", one per parameter in order.
std::filesystem::path AxesScaleFilePath(const Session& session);

/// Writes the axis ranges, all or nothing. Throws CommandError on failure.
void WriteAxesScaleFile(const Session& session);

/// Reads the axis ranges from the file, all or none. Throws CommandError if the file is missing ("... is not present"),
/// ends early or contains anything else.
void ReadAxesScaleFile(Session& session);

}  // namespace pallomir
