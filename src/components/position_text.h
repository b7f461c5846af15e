#pragma once

#include "components/position_file.h"
#include "files/file_reader.h"
#include "session/work_pace.h"

namespace pallomir {

/// Appends the samples of a text from byte `begin` on, one a line. Lines that are none are counted; throws CommandError
/// when they are more than the samples, or PixelsPerCm is not above 0.
void ReadPositionText(FileReader& file, size_t begin, WorkPace& pace, Positions& positions);

}  // namespace pallomir
