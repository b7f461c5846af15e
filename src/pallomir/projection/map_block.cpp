#include "pallomir/projection/map_block.h"

#include "pallomir/files/platform.h"

namespace pallomir {

PALLOMIR_HOT_LOOP
int32_t MapBlock(const PointMapping& mapping, const float* x, const float* y, const uint8_t* codes, size_t count,
                 int32_t* offsets) {
  const PointMapping m = mapping;
  int32_t placed = 0;
  for (size_t i = 0; i < count; ++i) {
    const float px = (x[i] - m.Left) * m.ScaleX + m.Margin;
    const float py = (y[i] - m.Top) * m.ScaleY + m.Margin;
    const bool on = (px >= 0) & (px < m.LimitX) & (py >= 0) & (py < m.LimitY) & (codes[i] != 0);
    const float column = on ? px : 0;
    const float row = on ? py : 0;
    const int32_t offset = static_cast<int32_t>(row) * m.Stride + static_cast<int32_t>(column);
    offsets[i] = on ? offset : m.Nowhere;
    placed += static_cast<int32_t>(on);
  }
  return placed;
}

}  // namespace pallomir
