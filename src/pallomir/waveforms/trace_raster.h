#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pallomir {

/// Largest absolute coordinate of a trace, in device pixels.
inline constexpr int32_t kFarthestPixel = 1 << 28;

/// An image of traces: one byte per pixel, 0 where nothing is drawn, otherwise a colour code. It is stored column by
/// column, because a trace runs from left to right and is mostly steep: in each column it fills one run of bytes.
class TraceRaster {
 public:
  TraceRaster(int width, int height);

  int Width() const { return width_; }
  int Height() const { return height_; }
  uint8_t At(int column, int row) const { return bytes_[Index(column, row)]; }

  void Clear();

  /// Draws a line, one pixel thick, from vertex to vertex: vertex k is at the centre of pixel (columns[k], rows[k]);
  /// columns must be ascending. Between two vertices each row or each column, whichever are more, has one pixel. Parts
  /// outside the image are clipped.
  void DrawTrace(std::span<const int32_t> columns, std::span<const int32_t> rows, uint8_t code);

  /// Fills rows `top`..`bottom` (inclusive) of a column.
  void FillColumn(int32_t column, int32_t top, int32_t bottom, uint8_t code);

  /// Fills columns `left`..`right` (inclusive) of a row.
  void FillRow(int32_t row, int32_t left, int32_t right, uint8_t code);

  /// Converts the image to rows of pixels, `stride` pixels apart, with palette[code] for each pixel.
  void Paint(std::span<const uint32_t, 256> palette, uint32_t* pixels, size_t stride) const;

 private:
  void DrawRising(std::span<const int32_t> columns, std::span<const int32_t> rows, uint8_t code);
  size_t Index(int column, int row) const {
    return static_cast<size_t>(column) * stride_ + static_cast<size_t>(row) + 1;
  }

  int width_;
  int height_;
  size_t stride_;  ///< bytes per column: its pixels, one each above and below for parts outside the image, and padding
  std::vector<uint8_t> bytes_;
  // Of the trace being drawn, by column, from the one before the image to the one after it.
  std::vector<int32_t> centres_;
  std::vector<int32_t> tops_;
  std::vector<int32_t> bottoms_;
};

}  // namespace pallomir
