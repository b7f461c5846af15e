#include "pallomir/projection/density.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "pallomir/projection/map_block.h"

namespace pallomir {

namespace {

constexpr size_t kBlock = 1024;
/// The share of its colour that a cell with one point has, of 256.
constexpr double kLeastShare = 77;

/// The shares of the colour by the number of points in a cell, up to `most`.
class Shades {
 public:
  explicit Shades(uint32_t most) : scale_(most > 1 ? (256 - kLeastShare) / std::log(most) : 0), lone_(most <= 1) {}
  uint32_t Of(uint32_t count) const {
    return lone_ ? 256 : static_cast<uint32_t>(std::lround(kLeastShare + scale_ * std::log(count)));
  }

 private:
  double scale_;
  /// No cell has two points: all have the full colour.
  bool lone_;
};

}  // namespace

DensityRaster::DensityRaster(int width, int height, int cell, int loose)
    : width_(width),
      height_(height),
      cell_(cell),
      loose_(static_cast<uint32_t>(loose)),
      columns_((width + cell - 1) / cell),
      rows_((height + cell - 1) / cell),
      cells_(static_cast<size_t>(columns_) * rows_ + 1) {}

inline void DensityRaster::Enter(Cell& cell, uint32_t code, uint32_t loose) {
  const uint32_t leader = cell.Vote & 0xFF;
  if (leader > loose && code == loose) return;
  if (leader == loose && code != loose) cell = {};
  ++cell.Count;
  constexpr uint32_t kOne = 0x100;
  if (cell.Vote < kOne)
    cell.Vote = kOne | code;
  else
    cell.Vote += leader == code ? kOne : 0U - kOne;
}

size_t DensityRaster::Draw(const View& view, const float* x, const float* y, const uint8_t* codes, size_t count) {
  if (!view.Drawable()) return 0;
  PointMapping m;
  m.Left = static_cast<float>(view.Left);
  m.Top = static_cast<float>(view.Top);
  m.ScaleX = static_cast<float>((width_ - 1) / (view.Right - view.Left) / cell_);
  m.ScaleY = static_cast<float>((height_ - 1) / (view.Bottom - view.Top) / cell_);
  m.Margin = 0.5F / static_cast<float>(cell_);
  m.LimitX = static_cast<float>(width_) / static_cast<float>(cell_);
  m.LimitY = static_cast<float>(height_) / static_cast<float>(cell_);
  m.Stride = columns_;
  m.Nowhere = columns_ * rows_;
  size_t drawn = 0;
  std::array<int32_t, kBlock> offsets;
  for (size_t begin = 0; begin < count; begin += kBlock) {
    const size_t n = std::min(kBlock, count - begin);
    drawn += static_cast<size_t>(MapBlock(m, x + begin, y + begin, codes + begin, n, offsets.data()));
    for (size_t i = 0; i < n; ++i) Enter(cells_[static_cast<size_t>(offsets[i])], codes[begin + i], loose_);
  }
  return drawn;
}

void DensityRaster::Paint(const Canvas& canvas, std::span<const uint32_t, 256> palette, uint32_t ground) const {
  const std::span cells(cells_.data(), cells_.size() - 1);
  uint32_t mostLoose = 0, mostHeld = 0;
  for (const Cell& cell : cells) {
    uint32_t& most = (cell.Vote & 0xFF) == loose_ ? mostLoose : mostHeld;
    most = std::max(most, cell.Count);
  }
  const Shades loose(mostLoose), held(mostHeld);
  for (int row = 0; row < rows_; ++row)
    for (int column = 0; column < columns_; ++column) {
      const Cell& cell = cells[static_cast<size_t>(row) * columns_ + column];
      if (cell.Count == 0) continue;
      const uint32_t code = cell.Vote & 0xFF;
      const Shades& shades = code == loose_ ? loose : held;
      PaintCell(canvas, column, row, Mixed(ground, palette[code], shades.Of(cell.Count)));
    }
}

void DensityRaster::PaintCell(const Canvas& canvas, int column, int row, uint32_t colour) const {
  const int right = std::min((column + 1) * cell_, canvas.Width), below = std::min((row + 1) * cell_, canvas.Height);
  for (int y = row * cell_; y < below; ++y)
    std::fill(canvas.Pixels + y * canvas.Stride + column * cell_, canvas.Pixels + y * canvas.Stride + right, colour);
}

}  // namespace pallomir
