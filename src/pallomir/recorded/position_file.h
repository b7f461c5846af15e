#pragma once

#include <cstdint>
#include <string_view>

#include "pallomir/files/progress.h"
#include "pallomir/science/positions.h"

namespace pallomir {

/// Reads a position file of any of three kinds, told apart by content:
/// - our own (Pos.p): a text header, perhaps a line "PixelsPerCm,4", then "timestamp,x,y,angle"; the header tells how
///   angles are counted, or they are kTextAngles;
/// - the acquisition system's video file: a header of 16384 bytes, which may be absent, then records of 1828 bytes,
///   little-endian: stamp u64 at 6, x, y and angle i32 at 1616, 1620 and 1624; a piece of a record at the end is left
///   out; angles are kVideoAngles;
/// - plain text: "time x y" or "time x y angle" a line, microseconds, pixels and degrees, apart by commas, semicolons,
///   tabs or blanks; angles are kTextAngles; lines beginning with "#" or "%" and a first line of column names are
///   skipped.
///
/// Lost is x = y = 0, and what is not a number. A direction outside 0 to 360 is not known, nor is that of a lost sample
/// or any in a file whose directions are all 0. Throws CommandError when the file cannot be read, or when most of it is
/// something else; Interrupted when the user stops it.
Positions ReadPositions(std::string_view path, const Progress& progress = {});

}  // namespace pallomir
