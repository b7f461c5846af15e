#pragma once

#include <array>
#include <cstddef>

#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {

/// Rows transposed at a time. Sixteen unroll into straight-line code; 32 take three times as long.
inline constexpr size_t kTileRows = 16;

/// Where the next values of each parameter are written.
using ColumnPointers = std::array<float*, kParameters>;

/// The smallest and largest finite value of each column, in lanes so that they can be vectorised. Both start at 0, so
/// that every range includes 0.
struct ColumnRanges {
  static constexpr size_t kLanes = 8;
  std::array<std::array<float, kLanes>, kParameters> Low{};
  std::array<std::array<float, kLanes>, kParameters> High{};

  float Minimum(int parameter) const;
  float Maximum(int parameter) const;
};

/// Transposes kTileRows parameter-file rows (544 bytes each) into columns that are all zero so far, and widens the
/// ranges by their finite values. Returns true if some value is not finite. 65 ms for a million rows, as long as
/// copying them.
bool TransposeTile(const unsigned char* rows, const ColumnPointers& columns, ColumnRanges& ranges);

/// True if a row contains a value that is not finite.
bool HasOddValue(const unsigned char* row);

}  // namespace pallomir
