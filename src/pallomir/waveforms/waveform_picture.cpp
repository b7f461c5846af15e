#include "pallomir/waveforms/waveform_picture.h"

#include <algorithm>
#include <cmath>

#include "pallomir/files/platform.h"
#include "pallomir/projection/draw_points.h"

namespace pallomir {

namespace {

constexpr int kLastBlock = kWaveformBlocks - 1;

/// The nearest pixel, clamped to the range of a trace.
int32_t NearestPixel(double pixel) {
  constexpr double farthest = kFarthestPixel;
  return static_cast<int32_t>(std::floor(std::clamp(pixel, -farthest, farthest) + 0.5));
}

/// Rows of samples: height 0 is at row `base`, one count is `scale` rows. As NearestPixel, but vectorised.
PALLOMIR_HOT_LOOP
void RowsOf(const int16_t* samples, double base, double scale, int32_t* rows) {
  constexpr double farthest = kFarthestPixel;
  for (int j = 0; j < kBlockSamples; ++j) {
    const double row = std::min(std::max(base + scale * samples[j], -farthest), farthest);
    rows[j] = static_cast<int32_t>(row + (farthest + 0.5)) - kFarthestPixel;
  }
}

double ColumnShift(int block) {
  return block % 2 == 1 ? kColumnShift : 0;
}

}  // namespace

WaveformPicture::WaveformPicture(const View& view) : view_(view), raster_(view.Width, view.Height) {
  for (int side = 0; side < 2; ++side) {
    markers_[side] = NearestPixel(view.PixelX(ColumnShift(side) + kMarkerSample));
    for (int j = 0; j < kBlockSamples; ++j) columns_[side][j] = NearestPixel(view.PixelX(ColumnShift(side) + j));
  }
}

void WaveformPicture::Clear() {
  raster_.Clear();
}

void WaveformPicture::Draw(const WaveformRecord& record, int cluster, double unitsACount) {
  if (!view_.Drawable()) return;
  // Drawing the lines through sample 8 once, before the last trace, gives the same image as drawing them before each.
  const auto code = static_cast<uint8_t>(ColourCode(cluster));
  for (int block = 0; block < kLastBlock; ++block) DrawBlock(record, block, code, unitsACount);
  DrawMarkers();
  DrawBlock(record, kLastBlock, code, unitsACount);
}

void WaveformPicture::DrawBlock(const WaveformRecord& record, int block, uint8_t code, double unitsACount) {
  const int16_t* samples = record.data() + ptrdiff_t{block} * kBlockSamples;
  const double scale = view_.PixelY(1) - view_.PixelY(0);
  Coordinates rows;
  RowsOf(samples, view_.PixelY(-kBlockShift * block), unitsACount * scale, rows.data());
  raster_.DrawTrace(columns_[block % 2], rows, code);
}

void WaveformPicture::DrawMarkers() {
  const auto white = static_cast<uint8_t>(ColourCode(0));
  const int32_t bottom = NearestPixel(view_.PixelY(kMarkerBottom));
  raster_.FillColumn(markers_[0], NearestPixel(view_.PixelY(kLeftMarkerTop)), bottom, white);
  raster_.FillColumn(markers_[1], NearestPixel(view_.PixelY(kMarkerTop)), bottom, white);
}

}  // namespace pallomir
