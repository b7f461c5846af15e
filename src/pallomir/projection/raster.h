#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/projection/view.h"

namespace pallomir {

/// The picture of the points: one byte a pixel, 0 where nothing is drawn, else a colour code. A quarter of the size of
/// a picture in full colour, it stays in the second-level cache while points are scattered over it. Round the visible
/// pixels lies a margin into which points at the edge reach, so that drawing never needs to clip.
class Raster {
 public:
  /// An empty picture of width x height device pixels; `radius` is that of the discs drawn on it, in device pixels,
  /// and `pixel` the side of the square that stands for one pixel where radius is 0, or its disc were smaller.
  Raster(int width, int height, double radius, int pixel);
  Raster() : Raster(1, 1, 0, 1) {}

  int Width() const { return width_; }
  int Height() const { return height_; }

  /// Draws `count` points of a view: point i at (x[i], y[i]) in colour codes[i], nothing where the code is 0. Values
  /// that are not finite are not drawn. Returns how many points are on the surface or reach into it.
  size_t Draw(const View& view, const float* x, const float* y, const uint8_t* codes, size_t count);

  /// The codes of visible row `row`, Width() of them.
  std::span<const uint8_t> Row(int row) const;

  void Clear();

 private:
  /// One row of the shape that stands for a point: `Length` bytes from `Offset` on, counted from the centre.
  struct Run {
    std::ptrdiff_t Offset;
    uint32_t Length;
  };
  void MakeShape(double radius, int pixel);

  int width_;
  int height_;
  int reach_;   ///< how far a point's shape extends from its centre
  int margin_;  ///< padding on every side: a centre may lie `reach_` off the surface, its shape as much farther
  int stride_;
  std::vector<Run> shape_;
  std::vector<uint8_t> bytes_;
};

}  // namespace pallomir
