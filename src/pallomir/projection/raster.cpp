#include "pallomir/projection/raster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "pallomir/projection/map_block.h"

namespace pallomir {

namespace {

constexpr size_t kBlock = 1024;
constexpr double kLargestRadius = 500;

/// Writes `length` equal bytes; short runs as two stores that may overlap, without a call.
inline void FillRun(uint8_t* to, uint32_t code, uint32_t length) {
  const uint32_t four = 0x01010101U * code;
  if (length >= 4 && length <= 8) {
    std::memcpy(to, &four, 4);
    std::memcpy(to + length - 4, &four, 4);
  } else if (length < 4) {
    to[0] = to[length >> 1U] = to[length - 1] = static_cast<uint8_t>(code);
  } else {
    std::memset(to, static_cast<int>(code), length);
  }
}

/// Half the width of row `row` of a disc, without the centre.
int HalfRow(double radius, int row) {
  return static_cast<int>(std::sqrt(radius * radius - row * row));
}

int PixelsOfDisc(double radius) {
  int size = 0;
  for (int row = -static_cast<int>(radius); row <= radius; ++row) size += 2 * HalfRow(radius, row) + 1;
  return size;
}

}  // namespace

Raster::Raster(int width, int height, double radius, int pixel) : width_(width), height_(height) {
  radius = std::min(radius, kLargestRadius);
  if (PixelsOfDisc(radius) < pixel * pixel) radius = 0;
  reach_ = radius > 0 ? static_cast<int>(radius) : pixel / 2;
  margin_ = 2 * reach_;
  stride_ = width_ + 2 * margin_;
  MakeShape(radius, pixel);
  // After the last row is room for one shape: points that are not on the raster are drawn there.
  bytes_.resize(static_cast<size_t>(stride_) * (height_ + 2 * margin_ + 2 * reach_ + 1));
}

void Raster::MakeShape(double radius, int pixel) {
  if (radius <= 0) {
    const int before = (pixel - 1) / 2;
    for (int row = 0; row < pixel; ++row)
      shape_.push_back({std::ptrdiff_t{row - before} * stride_ - before, static_cast<uint32_t>(pixel)});
    return;
  }
  for (int row = -reach_; row <= reach_; ++row) {
    const int half = HalfRow(radius, row);
    shape_.push_back({std::ptrdiff_t{row} * stride_ - half, static_cast<uint32_t>(2 * half + 1)});
  }
}

size_t Raster::Draw(const View& view, const float* x, const float* y, const uint8_t* codes, size_t count) {
  if (!view.Drawable()) return 0;
  // Offsets count from the outermost centre whose shape still reaches the surface, and round to pixel centres.
  PointMapping m;
  m.Left = static_cast<float>(view.Left);
  m.Top = static_cast<float>(view.Top);
  m.ScaleX = static_cast<float>((width_ - 1) / (view.Right - view.Left));
  m.ScaleY = static_cast<float>((height_ - 1) / (view.Bottom - view.Top));
  m.Margin = static_cast<float>(reach_) + 0.5F;
  m.LimitX = static_cast<float>(width_ + 2 * reach_);
  m.LimitY = static_cast<float>(height_ + 2 * reach_);
  m.Stride = stride_;
  m.Nowhere = stride_ * (height_ + 2 * margin_);
  uint8_t* origin = bytes_.data() + stride_ * reach_ + reach_;
  size_t drawn = 0;
  std::array<int32_t, kBlock> offsets;
  for (size_t begin = 0; begin < count; begin += kBlock) {
    const size_t n = std::min(kBlock, count - begin);
    drawn += MapBlock(m, x + begin, y + begin, codes + begin, n, offsets.data());
    if (shape_.size() == 1) {
      for (size_t i = 0; i < n; ++i) origin[offsets[i]] = codes[begin + i];
      continue;
    }
    for (size_t i = 0; i < n; ++i) {
      uint8_t* centre = origin + offsets[i];
      const uint32_t code = codes[begin + i];
      for (const Run& run : shape_) FillRun(centre + run.Offset, code, run.Length);
    }
  }
  return drawn;
}

std::span<const uint8_t> Raster::Row(int row) const {
  return {bytes_.data() + static_cast<size_t>(stride_) * (row + margin_) + margin_, static_cast<size_t>(width_)};
}

void Raster::Clear() {
  std::fill(bytes_.begin(), bytes_.end(), uint8_t{0});
}

}  // namespace pallomir
