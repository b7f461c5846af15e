#pragma once

#include <string>
#include <string_view>

#include "pallomir/recorded/position_file.h"
#include "tools/import/output_file.h"

namespace pallomir {

/// The text header of Pos.p, which tells by which convention its angles are counted.
std::string PositionHeader(const Positions& recorded, std::string_view date);

/// Writes what follows the header: a line "PixelsPerCm,N" where the scale is known, then a line "stamp,x,y,angle" a
/// sample, lost ones included, with the angle as it was recorded and -1 where there is none.
void WritePositions(const Positions& recorded, OutputFile& file);

}  // namespace pallomir
