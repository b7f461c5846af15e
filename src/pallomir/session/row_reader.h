#pragma once

#include <cstdint>

#include "pallomir/files/file_reader.h"
#include "pallomir/session/point_table.h"
#include "pallomir/session/transpose.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// What was met while rows were read.
struct RowFindings {
  ColumnRanges Ranges;
  int64_t OddRows = 0;       ///< with a value that is not finite
  int64_t FirstOddRow = -1;  ///< of the table
  size_t MissingBytes = 0;   ///< of the last row, which the file holds in part
};

/// Reads as many rows of a parameter file as `points`, which is all zero, has room for: from row `first` on, behind a
/// header of `header` bytes. The progress bar is shown meanwhile. Throws CommandError where the file ends early,
/// std::bad_alloc before the last of the machine's memory is taken, Interrupted when the user stops it; the table is
/// then filled in part.
RowFindings ReadRows(FileReader& file, long header, int64_t first, PointTable& points, World& world);

}  // namespace pallomir
