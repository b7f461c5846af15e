#pragma once

#include <string>

#include "pallomir/session/session.h"

namespace pallomir {

/// The file of axis ranges in the data directory: 134 lines "maximum,minimum", one for each parameter in order.
std::string AxesScaleFilePath(const Session& session);

/// Writes the axis ranges, all or nothing. Throws CommandError when that fails.
void WriteAxesScaleFile(const Session& session);

/// Takes the axis ranges from the file, all of them or none. Throws CommandError when the file is missing ("... is not
/// present"), ends early or holds something else.
void ReadAxesScaleFile(Session& session);

}  // namespace pallomir
