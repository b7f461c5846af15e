#pragma once

#include <filesystem>
#include <string_view>

#include "tools/import/tracking.h"

namespace pallomir {

/// Writes Pos.p: a text header, a line "PixelsPerCm,N" when `pixelsPerCm` is not 0, then a line "stamp,x,y,direction" a
/// frame, lost ones included. Throws CommandError when it cannot be written.
void WritePositionFile(const std::filesystem::path& path, const Tracking& tracking, double pixelsPerCm,
                       std::string_view date);

}  // namespace pallomir
