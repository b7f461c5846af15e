#include "session/transpose.h"

#include <bit>
#include <limits>

#include "files/bytes.h"
#include "files/parameter_header.h"
#include "files/platform.h"

namespace pallomir {

void TransposeRows(const unsigned char* source, size_t rows, const ColumnPointers& columns, uint64_t* stamps,
                   std::array<unsigned char, kTransposeRows>& odd) {
  for (size_t r = 0; r < rows; ++r) stamps[r] = LoadLittleEndian<uint64_t>(source + r * kRowBytes);
  std::array<uint32_t, kTransposeRows> notFinite{};
  for (int p = 0; p < kParameters; ++p) {
    const unsigned char* value = source + kStampBytes + p * sizeof(float);
    float* column = columns[p];
    for (size_t r = 0; r < rows; ++r) column[r] = LoadLittleEndian<float>(value + r * kRowBytes);
    for (size_t r = 0; r < rows; ++r) notFinite[r] |= (std::bit_cast<uint32_t>(column[r]) & 0x7f800000U) == 0x7f800000U;
  }
  for (size_t r = 0; r < rows; ++r) odd[r] = notFinite[r] != 0;
}

PALLOMIR_HOT_LOOP
static void WidenRange(const float* values, size_t count, float& minimum, float& maximum) {
  // Sixteen running pairs, so that the compiler may keep them in vectors without reordering comparisons.
  constexpr size_t kLanes = 16;
  constexpr float kLargest = std::numeric_limits<float>::max();
  std::array<float, kLanes> low, high;
  low.fill(minimum);
  high.fill(maximum);
  size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (size_t lane = 0; lane < kLanes; ++lane) {
      const float v = values[i + lane];
      high[lane] = (v > high[lane]) & (v <= kLargest) ? v : high[lane];
      low[lane] = (v < low[lane]) & (v >= -kLargest) ? v : low[lane];
    }
  }
  for (; i < count; ++i) {
    const float v = values[i];
    if (v > high[0] && v <= kLargest) high[0] = v;
    if (v < low[0] && v >= -kLargest) low[0] = v;
  }
  for (size_t lane = 0; lane < kLanes; ++lane) {
    if (high[lane] > maximum) maximum = high[lane];
    if (low[lane] < minimum) minimum = low[lane];
  }
}

void WidenRanges(const ColumnPointers& columns, size_t rows, ByParameter<float>& minimum, ByParameter<float>& maximum) {
  for (int p = 0; p < kParameters; ++p) WidenRange(columns[p], rows, minimum[p], maximum[p]);
}

}  // namespace pallomir
