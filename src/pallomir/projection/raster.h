#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/projection/view.h"

namespace pallomir {

/// The image of the points: one byte per pixel, 0 where nothing is drawn, otherwise a colour code. At a quarter of the
/// size of a full-colour image it stays in the second-level cache while points are scattered over it. A margin around
/// the visible pixels takes the parts of points at the edge, so that drawing never needs to clip.
class Raster {
 public:
  /// An empty image of width x height device pixels; `radius` is that of the discs drawn on it, in device pixels, and
  /// `pixel` the side of the square drawn for a point if the radius is 0 or the disc would be smaller.
  Raster(int width, int height, double radius, int pixel);
  Raster() : Raster(1, 1, 0, 1) {}

  int Width() const { return width_; }
  int Height() const { return height_; }

  /// Draws `count` points of a view: point i at (x[i], y[i]) with colour code codes[i], or not at all if the code is 0.
  /// Values that are not finite are not drawn. Returns the number of points on the surface or reaching into it.
  size_t Draw(const View& view, const float* x, const float* y, const uint8_t* codes, size_t count);

  /// The Width() codes of visible row `row`.
  std::span<const uint8_t> Row(int row) const;

  void Clear();

 private:
  /// One row of the shape of a point: `Length` bytes from `Offset`, relative to the centre.
  struct Run {
    std::ptrdiff_t Offset;
    uint32_t Length;
  };
  void MakeShape(double radius, int pixel);

  int width_;
  int height_;
  int reach_;   ///< extent of a point's shape from its centre
  int margin_;  ///< padding on every side: a centre may be `reach_` off the surface, and its shape extends as far again
  int stride_;
  std::vector<Run> shape_;
  std::vector<uint8_t> bytes_;
};

}  // namespace pallomir
