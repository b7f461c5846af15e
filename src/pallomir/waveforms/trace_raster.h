#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pallomir {

/// Coordinates of a trace, in device pixels, lie within this on either side of 0.
inline constexpr int32_t kFarthestPixel = 1 << 28;

/// A picture of traces: one byte a pixel, 0 where nothing is drawn, else a colour code. It is kept column by column,
/// because a trace goes from left to right and mostly steeply: what it fills of a column is one run of bytes.
class TraceRaster {
 public:
  TraceRaster(int width, int height);

  int Width() const { return width_; }
  int Height() const { return height_; }
  uint8_t At(int column, int row) const { return bytes_[Place(column, row)]; }

  void Clear();

  /// Draws a line, one pixel thick, from vertex to vertex: vertex k at the centre of pixel (columns[k], rows[k]), the
  /// columns ascending. Between two vertices each row or each column, whichever is more, has one pixel. What lies off
  /// the picture is left out.
  void DrawTrace(std::span<const int32_t> columns, std::span<const int32_t> rows, uint8_t code);

  /// Draws rows `top`..`bottom`, both included, of a column.
  void FillColumn(int32_t column, int32_t top, int32_t bottom, uint8_t code);

  /// Draws columns `left`..`right`, both included, of a row.
  void FillRow(int32_t row, int32_t left, int32_t right, uint8_t code);

  /// Turns the picture into lines of pixels, `stride` of them from line to line, palette[code] for each.
  void Paint(std::span<const uint32_t, 256> palette, uint32_t* pixels, size_t stride) const;

 private:
  void DrawRising(std::span<const int32_t> columns, std::span<const int32_t> rows, uint8_t code);
  size_t Place(int column, int row) const {
    return static_cast<size_t>(column) * stride_ + static_cast<size_t>(row) + 1;
  }

  int width_;
  int height_;
  size_t stride_;  ///< bytes of a column: its pixels, one more above and below for what is off the picture, and padding
  std::vector<uint8_t> bytes_;
  // Of the trace being drawn, by column from the one before the picture to the one behind it.
  std::vector<int32_t> centres_;
  std::vector<int32_t> tops_;
  std::vector<int32_t> bottoms_;
};

}  // namespace pallomir
