#pragma once

#include "pallomir/files/file_reader.h"
#include "pallomir/files/progress.h"
#include "pallomir/recorded/position_file.h"

namespace pallomir {

/// Appends the samples of a text from byte `begin` on, one a line. Lines that are none are counted; throws CommandError
/// when they are more than the samples, or PixelsPerCm is not above 0.
void ReadPositionText(FileReader& file, size_t begin, const Progress& progress, Positions& positions);

}  // namespace pallomir
