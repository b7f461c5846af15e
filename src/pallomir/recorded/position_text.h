#pragma once

#include "pallomir/files/file_reader.h"
#include "pallomir/files/progress.h"
#include "pallomir/recorded/position_file.h"

namespace pallomir {

/// Appends the samples of a text file, one per line, starting at byte `begin`. Lines that are not samples are counted;
/// throws CommandError if they outnumber the samples or PixelsPerCm is not above 0.
void ReadPositionText(FileReader& file, size_t begin, const Progress& progress, Positions& positions);

}  // namespace pallomir
