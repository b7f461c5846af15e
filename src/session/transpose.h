#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "session/session.h"

namespace pallomir {

/// Rows that are turned into columns at a time: 35 kB, which the second-level cache holds with the columns' ends.
inline constexpr size_t kTransposeRows = 64;

/// Where the next value of each parameter goes.
using ColumnPointers = std::array<float*, kParameters>;

/// Spreads `rows` parameter-file rows (at most kTransposeRows, 544 bytes each) over the columns and the stamps. odd[r]
/// becomes 1 when row r holds a value that is not finite, else 0.
void TransposeRows(const unsigned char* source, size_t rows, const ColumnPointers& columns, uint64_t* stamps,
                   std::array<unsigned char, kTransposeRows>& odd);

/// Widens minimum and maximum by the finite ones of the next `rows` values of each column.
void WidenRanges(const ColumnPointers& columns, size_t rows, ByParameter<float>& minimum, ByParameter<float>& maximum);

}  // namespace pallomir
