#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/projection/stroke.h"
#include "pallomir/projection/view.h"

namespace pallomir {

/// The image of the points as their density: how many are in each cell, and in whose colour it is shown. A cell in
/// which some points have a colour above `loose` counts only these and takes the colour of most of them (Boyer and
/// Moore's vote), so that clusters are seen within the cloud of unclustered points.
class DensityRaster {
 public:
  /// An empty image of width x height device pixels. `cell` is the side of a cell in device pixels, `loose` the colour
  /// code of points in no cluster.
  DensityRaster(int width, int height, int cell, int loose);

  int Width() const { return width_; }

  /// Counts `count` points of a view, with the meaning of Raster::Draw.
  size_t Draw(const View& view, const float* x, const float* y, const uint8_t* codes, size_t count);

  /// Paints the cells with points over a canvas of the same size: palette[code], blended with `ground` by the logarithm
  /// of the number of points. Loose and clustered cells have scales of their own, each up to its fullest cell.
  void Paint(const Canvas& canvas, std::span<const uint32_t, 256> palette, uint32_t ground) const;

 private:
  struct Cell {
    uint32_t Count = 0;
    /// By how much the colour leads, in the upper 24 bits, and its code.
    uint32_t Vote = 0;
  };
  static void Enter(Cell& cell, uint32_t code, uint32_t loose);
  void PaintCell(const Canvas& canvas, int column, int row, uint32_t colour) const;

  int width_, height_, cell_;
  uint32_t loose_;
  int columns_, rows_;
  /// By rows; the last one takes points beyond the image.
  std::vector<Cell> cells_;
};

}  // namespace pallomir
