#pragma once

#include <array>
#include <cstddef>

#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {

/// Rows that are turned into columns at a time. Sixteen unroll into straight code; 32 take three times as long.
inline constexpr size_t kTileRows = 16;

/// Where the next values of each parameter go.
using ColumnPointers = std::array<float*, kParameters>;

/// The smallest and largest finite values met in each column, kept in lanes so that they widen in vectors. Both start
/// at 0, so that every range includes 0.
struct ColumnRanges {
  static constexpr size_t kLanes = 8;
  std::array<std::array<float, kLanes>, kParameters> Low{};
  std::array<std::array<float, kLanes>, kParameters> High{};

  float Minimum(int parameter) const;
  float Maximum(int parameter) const;
};

/// Spreads kTileRows parameter-file rows (544 bytes each) over columns that are all zero so far, and widens the ranges
/// by their finite values. True when some value is not finite. 65 ms for a million rows, as much as copying them takes.
bool TransposeTile(const unsigned char* rows, const ColumnPointers& columns, ColumnRanges& ranges);

/// True when row `row` of a tile holds a value that is not finite.
bool HasOddValue(const unsigned char* row);

}  // namespace pallomir
