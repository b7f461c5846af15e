#pragma once

#include <cstddef>
#include <cstdint>

namespace pallomir {

/// Maps points to indices into rows of cells; the points beyond the limits go to `Nowhere`.
struct PointMapping {
  float Left, Top, ScaleX, ScaleY;
  float LimitX, LimitY;  ///< upper limit, in cells, of positions that count
  float Margin;          ///< position of the value (Left, Top), in cells
  int32_t Stride, Nowhere;
};

/// Maps `count` points to offsets[]; those with code 0 go nowhere. Positions are rounded down; the tests also reject
/// NaN. Returns the number of points within the limits.
int32_t MapBlock(const PointMapping& mapping, const float* x, const float* y, const uint8_t* codes, size_t count,
                 int32_t* offsets);

}  // namespace pallomir
