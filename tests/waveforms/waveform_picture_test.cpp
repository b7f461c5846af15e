#include "pallomir/waveforms/waveform_picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "pallomir/projection/draw_points.h"

namespace pallomir {
namespace {

using Columns = std::vector<int32_t>;

bool Near(const TraceRaster& raster, int column, int row, int reach) {
  for (int c = std::max(column - reach, 0); c <= std::min(column + reach, raster.Width() - 1); ++c)
    for (int r = std::max(row - reach, 0); r <= std::min(row + reach, raster.Height() - 1); ++r)
      if (raster.At(c, r)) return true;
  return false;
}

/// A plain line drawer: a pixel for each step along the longer side.
void DrawPlainly(const Columns& columns, const Columns& rows, TraceRaster& raster) {
  for (size_t k = 0; k + 1 < columns.size(); ++k) {
    const int dx = columns[k + 1] - columns[k], dy = rows[k + 1] - rows[k];
    const int steps = std::max({std::abs(dx), std::abs(dy), 1});
    for (int s = 0; s <= steps; ++s) {
      const auto row = static_cast<int32_t>(std::lround(rows[k] + double(dy) * s / steps));
      raster.FillColumn(static_cast<int32_t>(std::lround(columns[k] + double(dx) * s / steps)), row, row, 1);
    }
  }
}

TEST(TraceRaster, IsWithinAPixelOfAPlainLineDrawer) {
  std::mt19937 random(7);
  const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  for (int round = 0; round < 600; ++round) {
    const int step = number(0, 14), height = round % 3 ? 90 : 6;
    Columns columns{number(-20, 30)}, rows{number(-10, 100)};
    for (int k = 1; k < 9; ++k) {
      columns.push_back(columns.back() + number(step / 2, step));
      rows.push_back(number(0, 3) ? rows.back() + number(-step, step) : number(-30, 120));
    }
    TraceRaster ours(70, height), plain(70, height);
    ours.DrawTrace(columns, rows, 1);
    DrawPlainly(columns, rows, plain);
    for (int c = 0; c < 70; ++c)
      for (int r = 0; r < height; ++r) {
        // At the border the neighbour may be off the picture.
        const bool inner = c > 0 && r > 0 && c < 69 && r < height - 1;
        ASSERT_TRUE(!ours.At(c, r) || !inner || Near(plain, c, r, 1)) << round << ": " << c << ", " << r;
        ASSERT_TRUE(!plain.At(c, r) || !inner || Near(ours, c, r, 1)) << round << ": " << c << ", " << r;
      }
  }
}

TEST(TraceRaster, LinesAreOnePixelThickAndMeetTheirVertices) {
  for (int dx = 0; dx <= 20; ++dx)
    for (int dy = -40; dy <= 40; ++dy) {
      TraceRaster raster(30, 90);
      raster.DrawTrace(Columns{4, 4 + dx}, Columns{45, 45 + dy}, 3);
      int drawn = 0;
      for (int c = 0; c < 30; ++c)
        for (int r = 0; r < 90; ++r) drawn += raster.At(c, r) == 3;
      EXPECT_EQ(drawn, std::max(dx, std::abs(dy)) + 1) << dx << ", " << dy;
      EXPECT_TRUE(raster.At(4, 45) && raster.At(4 + dx, 45 + dy)) << dx << ", " << dy;
    }
}

TEST(TraceRaster, LinesAreClippedToThePictureWithoutMoving) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    Columns columns, rows;
    for (int k = 0; k < 12; ++k) {
      columns.push_back(columns.empty() ? static_cast<int>(random() % 40)
                                        : columns.back() + static_cast<int>(random() % 25));
      rows.push_back(static_cast<int>(random() % 300));
    }
    TraceRaster whole(320, 300), cut(50, 40);
    whole.DrawTrace(columns, rows, 1);
    for (auto& c : columns) c -= 90;
    for (auto& r : rows) r -= 130;
    cut.DrawTrace(columns, rows, 1);
    for (int c = 0; c < 50; ++c)
      for (int r = 0; r < 40; ++r)
        ASSERT_EQ(cut.At(c, r), whole.At(c + 90, r + 130)) << round << ": " << c << ", " << r;
  }
  TraceRaster tiny(1, 1);
  tiny.DrawTrace(Columns{-kFarthestPixel, kFarthestPixel}, Columns{-kFarthestPixel, kFarthestPixel}, 1);
  EXPECT_EQ(tiny.At(0, 0), 1);
}

/// One device pixel per unit: value (x, y) of the drawing at column x + 5, row 200 - y.
View UnitView() {
  return WholeWaveformView(81, 7401);
}
uint8_t PixelAt(const WaveformPicture& picture, int x, int y) {
  return picture.Pixels().At(x + 5, 200 - y);
}
constexpr uint8_t kWhite = 1;

TEST(WaveformPicture, DrawsBlocksInTwoColumnsWithLinesThroughSampleEight) {
  WaveformRecord record{};
  for (const int block : {2, 5, 31}) record[32 * block + 8] = 40;  // a peak
  record[32 * 2 + 31] = -7;
  WaveformPicture picture(UnitView());
  picture.Draw(record, 4);
  const uint8_t four = static_cast<uint8_t>(ColourCode(4));
  EXPECT_EQ(PixelAt(picture, 0, -400), four);
  EXPECT_EQ(PixelAt(picture, 31, -407), four);
  EXPECT_EQ(PixelAt(picture, 7, -400), four);
  EXPECT_EQ(PixelAt(picture, 7, -381), four) << "half of the way up";
  EXPECT_EQ(PixelAt(picture, 36 + 9, -1000 + 15), four);
  EXPECT_EQ(PixelAt(picture, 36 + 31, -6200), four);
  EXPECT_EQ(PixelAt(picture, 32, -400), 0);
  EXPECT_EQ(PixelAt(picture, 35, -1000), 0);
  for (const auto& [x, y] : {std::pair(0, 0), {31, -800}, {36 + 3, -200}})
    EXPECT_EQ(PixelAt(picture, x, y), four) << "not recorded, and a trace as any other: " << x << ", " << y;
  // The lines cover every trace but the last.
  EXPECT_EQ(PixelAt(picture, 8, 150), kWhite);
  EXPECT_EQ(PixelAt(picture, 8, 151), 0);
  EXPECT_EQ(PixelAt(picture, 8, -360), kWhite);
  EXPECT_EQ(PixelAt(picture, 8, -7000), kWhite);
  EXPECT_EQ(PixelAt(picture, 8, -7001), 0);
  EXPECT_EQ(PixelAt(picture, 44, 0), kWhite);
  EXPECT_EQ(PixelAt(picture, 44, 1), 0);
  EXPECT_EQ(PixelAt(picture, 44, -1000 + 40), kWhite);
  EXPECT_EQ(PixelAt(picture, 44, -6200 + 40), four);
}

TEST(WaveformPicture, OverlaysClearsAndInverts) {
  WaveformRecord high{}, low{};
  high.fill(50);
  low.fill(-30);
  WaveformPicture picture(UnitView());
  picture.Draw(high, 1);
  picture.Draw(low, 2);
  EXPECT_EQ(PixelAt(picture, 20, -200 * 6 + 50), ColourCode(1));
  EXPECT_EQ(PixelAt(picture, 20, -200 * 6 - 30), ColourCode(2));
  picture.Clear();
  picture.Draw(high, 3, -1);
  EXPECT_EQ(PixelAt(picture, 20, -200 * 6 + 50), 0);
  EXPECT_EQ(PixelAt(picture, 20, -200 * 6 - 50), ColourCode(3));
  // Blocks that were not recorded cover what was drawn before, as the others do.
  high.fill(-400);  // block 6 is where block 8 has its centre
  picture.Draw(high, 1);
  EXPECT_EQ(PixelAt(picture, 20, -200 * 8), ColourCode(1));
  picture.Draw(WaveformRecord{}, 4);
  EXPECT_EQ(PixelAt(picture, 20, -200 * 8), ColourCode(4));
  // The height scales the traces and nothing else: -400 counts at a tenth, and counts that round to nothing.
  picture.Clear();
  picture.Draw(high, 1, 0.1);
  EXPECT_EQ(PixelAt(picture, 20, -200 * 8 - 40), ColourCode(1));
  EXPECT_EQ(PixelAt(picture, 20, -200 * 8), 0);
  picture.Draw(high, 2, 0.001);
  EXPECT_EQ(PixelAt(picture, 20, -200 * 8), ColourCode(2));
  picture.Clear();
  high.fill(0);
  picture.Draw(high, 1);

  std::array<uint32_t, 256> palette{};
  palette[ColourCode(1)] = 0xABCDEF;
  const int stride = 90;
  std::vector<uint32_t> pixels(stride * 7401, 7);
  picture.Pixels().Paint(palette, pixels.data(), stride);
  EXPECT_EQ(pixels[(200 + 200 * 8) * stride + 25], 0xABCDEFU);
  EXPECT_EQ(pixels[(200 + 200 * 8) * stride + 80], 0U);
  EXPECT_EQ(pixels[(200 + 200 * 8) * stride + 81], 7U) << "beyond the end of the row";
}

TEST(WaveformPicture, ZoomsToARectangleThatIsNotTooSmall) {
  const View whole = WholeWaveformView(800, 600);
  EXPECT_EQ(whole.Left, -5);
  EXPECT_EQ(whole.Top, 200);
  EXPECT_EQ(whole.Right - whole.Left, 80);
  EXPECT_EQ(whole.Top - whole.Bottom, 7400);
  const View zoomed = ZoomedWaveformView(whole, {30, -500}, {2, 100});
  EXPECT_EQ(zoomed.Left, 2);
  EXPECT_EQ(zoomed.Right, 30);
  EXPECT_EQ(zoomed.Top, 100);
  EXPECT_EQ(zoomed.Bottom, -500);
  for (const Vertex corner : {Vertex{2.05F, 0}, Vertex{30, -499.5F}, Vertex{NAN, 0}, Vertex{30, INFINITY}}) {
    EXPECT_EQ(ZoomedWaveformView(whole, {2, -500}, corner).Right, whole.Right);
  }
  // At the largest zoom, with the largest samples.
  WaveformRecord record;
  for (size_t i = 0; i < record.size(); ++i) record[i] = i % 2 ? INT16_MAX : INT16_MIN;
  WaveformPicture close(ZoomedWaveformView(WholeWaveformView(3000, 50), {10, -300}, {10.2F, -298}));
  close.Draw(record, 1);
  WaveformPicture small(WholeWaveformView(9, 7));
  small.Draw(record, 1);
  EXPECT_EQ(small.Pixels().At(2, 3), ColourCode(1));
  WaveformPicture(WholeWaveformView(1, 1)).Draw(record, 1);
}

}  // namespace
}  // namespace pallomir
