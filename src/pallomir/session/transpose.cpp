#include "pallomir/session/transpose.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "pallomir/files/bytes.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"

namespace pallomir {

float ColumnRanges::Minimum(int parameter) const {
  return *std::min_element(Low[parameter].begin(), Low[parameter].end());
}

float ColumnRanges::Maximum(int parameter) const {
  return *std::max_element(High[parameter].begin(), High[parameter].end());
}

namespace {

/// The bits that occur in each column of a tile: 0 in a column of zeros.
PALLOMIR_HOT_PART std::array<uint32_t, kParameters> BitsInColumns(const unsigned char* rows) {
  std::array<uint32_t, kParameters> bits{};
  for (size_t r = 0; r < kTileRows; ++r) {
    const unsigned char* values = rows + r * kRowBytes + kStampBytes;
    for (int p = 0; p < kParameters; ++p) bits[p] |= LoadLittleEndian<uint32_t>(values + p * sizeof(float));
  }
  return bits;
}

}  // namespace

PALLOMIR_HOT_LOOP
bool TransposeTile(const unsigned char* rows, const ColumnPointers& columns, ColumnRanges& ranges) {
  constexpr size_t kLanes = ColumnRanges::kLanes;
  constexpr float kLargest = std::numeric_limits<float>::max();
  // In most recordings most channels were not recorded: their columns are already zero and are not touched.
  const std::array<uint32_t, kParameters> bits = BitsInColumns(rows);
  std::array<int, kLanes> odd{};
  for (int p = 0; p < kParameters; ++p) {
    if (bits[p] == 0) continue;
    const unsigned char* source = rows + kStampBytes + p * sizeof(float);
    std::array<float, kTileRows> values;
    for (size_t r = 0; r < kTileRows; ++r) values[r] = LoadLittleEndian<float>(source + r * kRowBytes);
    float* column = columns[p];
    for (size_t r = 0; r < kTileRows; ++r) column[r] = values[r];
    auto low = ranges.Low[p], high = ranges.High[p];
    for (size_t r = 0; r < kTileRows; r += kLanes) {
      for (size_t lane = 0; lane < kLanes; ++lane) {
        const float value = values[r + lane];
        const bool finite = (value >= -kLargest) & (value <= kLargest);
        const float counted = finite ? value : 0;  // 0 does not widen the range
        high[lane] = counted > high[lane] ? counted : high[lane];
        low[lane] = counted < low[lane] ? counted : low[lane];
        odd[lane] |= static_cast<int>(!finite);
      }
    }
    ranges.Low[p] = low;
    ranges.High[p] = high;
  }
  return std::any_of(odd.begin(), odd.end(), [](int lane) { return lane != 0; });
}

bool HasOddValue(const unsigned char* row) {
  for (int p = 0; p < kParameters; ++p)
    if (!std::isfinite(LoadLittleEndian<float>(row + kStampBytes + p * sizeof(float)))) return true;
  return false;
}

}  // namespace pallomir
