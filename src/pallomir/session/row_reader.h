#pragma once

#include <cstdint>

#include "pallomir/files/file_reader.h"
#include "pallomir/session/point_table.h"
#include "pallomir/session/transpose.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Irregularities found while reading rows, and the value ranges.
struct RowFindings {
  ColumnRanges Ranges;
  int64_t OddRows = 0;       ///< rows with a value that is not finite
  int64_t FirstOddRow = -1;  ///< its index in the table
  size_t MissingBytes = 0;   ///< missing at the end of an incomplete last row
};

/// Reads rows of a parameter file into `points`, which must be all zero, until it is full: from row `first`, after a
/// header of `header` bytes. Shows the progress bar meanwhile. Throws CommandError if the file ends early,
/// std::bad_alloc before the machine runs out of memory, Interrupted when the user stops it; the table is then partly
/// filled.
RowFindings ReadRows(FileReader& file, long header, int64_t first, PointTable& points, World& world);

}  // namespace pallomir
