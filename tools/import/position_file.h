#pragma once

#include <string>
#include <string_view>

#include "pallomir/recorded/position_file.h"
#include "tools/import/output_file.h"

namespace pallomir {

/// The text header of Pos.p, which states its angle convention.
std::string PositionHeader(const Positions& recorded, std::string_view date);

/// Writes what follows the header: a line "PixelsPerCm,N" if the scale is known, then a line "stamp,x,y,angle" per
/// sample, including lost ones, with the angle as recorded, or -1 if unknown.
void WritePositions(const Positions& recorded, OutputFile& file);

}  // namespace pallomir
