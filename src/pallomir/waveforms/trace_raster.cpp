#include "pallomir/waveforms/trace_raster.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr size_t kWord = sizeof(uint64_t);

/// The row of a segment at the centre of each column in [from, to), computed with 32 fractional bits.
void FollowSegment(int32_t column, int32_t row, double slope, int32_t from, int32_t to, int32_t* centres) {
  constexpr double one = 0x1p32;
  const auto step = static_cast<int64_t>(slope * one);
  int64_t position = (int64_t{row} << 32) + (int64_t{1} << 31) + step * (from - column);
  for (int32_t c = from; c < to; ++c, position += step) centres[c] = static_cast<int32_t>(position >> 32);
}

/// The rows that the trace fills in each column: half-way to the rows of the neighbouring columns. Of the rows between
/// the centres of two columns, none is filled twice.
PALLOMIR_HOT_LOOP
void SpreadOverRows(const int32_t* centres, size_t count, int32_t height, int32_t* tops, int32_t* bottoms) {
  for (size_t c = 0; c < count; ++c) {
    const int32_t row = centres[c + 1];
    const int32_t before = (centres[c] + row) >> 1;
    const int32_t after = (row + centres[c + 2]) >> 1;
    const int32_t top = std::min(row, std::min(before, after) + 1);
    const int32_t bottom = std::max(row, std::max(before, after));
    tops[c] = std::clamp(top, -1, height);
    bottoms[c] = std::clamp(bottom, -1, height);
  }
}

/// Writes `length` equal bytes, at least 1. Most runs are short: they are written as one word, without an unpredictable
/// branch, so a whole word must be accessible at `to`.
inline void FillRun(uint8_t* to, uint64_t codes, size_t length) {
  if (length <= kWord) {
    const auto rest = static_cast<int>(8 * (kWord - length));
    const uint64_t mask = std::endian::native == std::endian::big ? ~uint64_t{0} << rest : ~uint64_t{0} >> rest;
    uint64_t word = 0;
    std::memcpy(&word, to, kWord);
    word = (word & ~mask) | (codes & mask);
    std::memcpy(to, &word, kWord);
    return;
  }
  uint8_t* const last = to + length - kWord;
  for (; to < last; to += kWord) std::memcpy(to, &codes, kWord);
  std::memcpy(last, &codes, kWord);
}

constexpr uint64_t Repeated(uint8_t code) {
  return 0x0101010101010101U * uint64_t{code};
}

}  // namespace

TraceRaster::TraceRaster(int width, int height)
    : width_(width),
      height_(height),
      stride_(static_cast<size_t>(height) + 2 + kWord),
      bytes_(stride_ * static_cast<size_t>(width)),
      centres_(static_cast<size_t>(width) + 2),
      tops_(static_cast<size_t>(width)),
      bottoms_(static_cast<size_t>(width)) {}

void TraceRaster::Clear() {
  std::fill(bytes_.begin(), bytes_.end(), uint8_t{0});
}

void TraceRaster::DrawTrace(std::span<const int32_t> columns, std::span<const int32_t> rows, uint8_t code) {
  const auto [highest, lowest] = std::minmax_element(rows.begin(), rows.end());
  if (rows.empty() || *lowest < 0 || *highest >= height_ || columns.back() < 0 || columns.front() >= width_) return;
  // Most traces of a tetrode are flat: they belong to channels that it does not have.
  if (*lowest == *highest) return FillRow(*lowest, columns.front(), columns.back(), code);
  // Vertices in the same column are joined within it.
  size_t begin = 0;
  for (size_t k = 1; k < columns.size(); ++k) {
    if (columns[k] != columns[k - 1]) continue;
    DrawRising(columns.subspan(begin, k - begin), rows.subspan(begin, k - begin), code);
    FillColumn(columns[k], std::min(rows[k - 1], rows[k]), std::max(rows[k - 1], rows[k]), code);
    begin = k;
  }
  DrawRising(columns.subspan(begin), rows.subspan(begin), code);
}

void TraceRaster::DrawRising(std::span<const int32_t> columns, std::span<const int32_t> rows, uint8_t code) {
  const int32_t first = std::max(columns.front(), -1);
  const int32_t last = std::min(columns.back(), width_);
  if (last < 0 || first >= width_) return;
  int32_t* centres = centres_.data() + 1;
  for (size_t k = 0; k + 1 < columns.size(); ++k) {
    const int32_t from = std::max(columns[k], first), to = std::min(columns[k + 1], last + 1);
    if (from >= to) continue;
    const double slope = static_cast<double>(rows[k + 1] - rows[k]) / (columns[k + 1] - columns[k]);
    FollowSegment(columns[k], rows[k], slope, from, to, centres);
  }
  if (columns.back() == last) centres[last] = rows.back();

  // The columns to fill, and their neighbours: beyond its ends the trace continues horizontally.
  const int32_t begin = std::max(first, 0), end = std::min(last, width_ - 1) + 1;
  if (first == begin) centres[begin - 1] = centres[begin];
  if (last == end - 1) centres[end] = centres[end - 1];
  const auto count = static_cast<size_t>(end - begin);
  SpreadOverRows(centres + begin - 1, count, height_, tops_.data(), bottoms_.data());
  const uint64_t codes = Repeated(code);
  uint8_t* column = bytes_.data() + Index(begin, 0);
  for (size_t c = 0; c < count; ++c, column += stride_)
    FillRun(column + tops_[c], codes, 1 + static_cast<size_t>(bottoms_[c] - tops_[c]));
}

void TraceRaster::FillColumn(int32_t column, int32_t top, int32_t bottom, uint8_t code) {
  top = std::max(top, 0);
  bottom = std::min(bottom, height_ - 1);
  if (column < 0 || column >= width_ || top > bottom) return;
  std::fill_n(bytes_.begin() + static_cast<std::ptrdiff_t>(Index(column, top)), bottom - top + 1, code);
}

void TraceRaster::FillRow(int32_t row, int32_t left, int32_t right, uint8_t code) {
  if (row < 0 || row >= height_) return;
  for (int32_t c = std::max(left, 0); c <= std::min(right, width_ - 1); ++c) bytes_[Index(c, row)] = code;
}

void TraceRaster::Paint(std::span<const uint32_t, 256> palette, uint32_t* pixels, size_t stride) const {
  // In tiles for the cache: the source is stored by columns, the target by rows.
  constexpr int tile = 32;
  for (int top = 0; top < height_; top += tile)
    for (int left = 0; left < width_; left += tile)
      for (int row = top; row < std::min(top + tile, height_); ++row) {
        uint32_t* line = pixels + static_cast<size_t>(row) * stride;
        for (int c = left; c < std::min(left + tile, width_); ++c) line[c] = palette[At(c, row)];
      }
}

}  // namespace pallomir
