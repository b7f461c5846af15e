#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "pallomir/files/progress.h"
#include "pallomir/science/behaviour/positions.h"

namespace pallomir {

/// Reads a position file of one of three kinds, detected by content:
/// - our own (Pos.p): a text header, optionally a line "PixelsPerCm,4", then "timestamp,x,y,angle"; the header states
///   the angle convention, otherwise it is kTextAngles;
/// - the acquisition system's video file: an optional header of 16384 bytes, then records of 1828 bytes, little-endian:
///   stamp u64 at offset 6, x, y and angle i32 at 1616, 1620 and 1624; an incomplete record at the end is ignored;
///   angles are kVideoAngles;
/// - plain text: "time x y" or "time x y angle" on each line, in microseconds, pixels and degrees, separated by commas,
///   semicolons, tabs or blanks; angles are kTextAngles; lines beginning with "#" or "%" and a first line of column
///   names are skipped.
///
/// A position of x = y = 0, or one that is not a number, is lost. Directions are unknown if outside 0 to 360, for lost
/// samples, and for all samples of a file whose directions are all 0. Throws CommandError if the file cannot be read,
/// is of no such kind or has more unreadable lines than samples; Interrupted when the user stops it.
Positions ReadPositions(const std::filesystem::path& path, const Progress& progress = {});

}  // namespace pallomir
