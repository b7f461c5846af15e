#include "pallomir/projection/raster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace pallomir {
namespace {

/// Draws points, all with one colour code, and returns how many are on the surface.
size_t Draw(Raster& raster, const View& view, const std::vector<std::pair<double, double>>& points, uint8_t code = 9) {
  std::vector<float> x, y;
  for (const auto& [px, py] : points) x.push_back(static_cast<float>(px)), y.push_back(static_cast<float>(py));
  const std::vector<uint8_t> codes(points.size(), code);
  return raster.Draw(view, x.data(), y.data(), codes.data(), points.size());
}

/// The picture as text, "#" where something is drawn.
std::string Picture(const Raster& raster) {
  std::string picture;
  for (int row = 0; row < raster.Height(); ++row) {
    for (const uint8_t code : raster.Row(row)) picture += code ? '#' : '.';
    picture += '\n';
  }
  return picture;
}

TEST(Raster, PointsFallOnThePixelsOfTheirView) {
  // Ends that single precision cannot represent exactly, on axes that increase upward and downward.
  for (const View& view : {View{0.1, 0.7, 1e6 + 0.3, 1e6 - 0.3, 7, 5}, View{-3, 1e9, -1e-3, 2e-3, 300, 211}}) {
    Raster raster(view.Width, view.Height, 0, 1);
    for (int row = 0; row < view.Height; row += 2)
      for (int column = 0; column < view.Width; column += 3) {
        raster.Clear();
        EXPECT_EQ(Draw(raster, view, {{view.ValueX(column), view.ValueY(row)}}), 1);
        EXPECT_EQ(raster.Row(row)[column], 9) << column << ", " << row;
      }
  }
}

TEST(Raster, BothEndsOfAnAxisAreOnTheSurfaceAndNothingBeyondThem) {
  const View view{0, 100, 100, 0, 3, 3};
  Raster raster(3, 3, 0, 1);
  EXPECT_EQ(Draw(raster, view, {{0, 0}, {100, 100}, {100, 0}}), 3);
  EXPECT_EQ(Picture(raster), "..#\n...\n#.#\n");
  raster.Clear();
  constexpr double inf = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Draw(raster, view, {{-26, 50}, {125, 50}, {50, -25}, {50, 126}, {3e38, -3e38}, {1e10, 50}}), 0);
  EXPECT_EQ(Draw(raster, view, {{NAN, 50}, {50, NAN}, {inf, 50}, {50, -inf}}), 0);
  EXPECT_EQ(Draw(raster, view, {{50, 50}}, 0), 0) << "code 0 draws nothing";
  EXPECT_EQ(Picture(raster), "...\n...\n...\n");
}

TEST(Raster, PixelsIncludeOnlyTheirUpperAndLeftEdges) {
  const View view{0, 2, 0, 2, 3, 3};  // one unit per pixel
  const std::pair<std::pair<double, double>, std::string> cases[] = {{{-0.5, 1}, "...\n#..\n...\n"},
                                                                     {{1, -0.5}, ".#.\n...\n...\n"},
                                                                     {{0.5, 1.5}, "...\n...\n.#.\n"},
                                                                     {{2.5, 1}, "...\n...\n...\n"},
                                                                     {{1, 2.5}, "...\n...\n...\n"}};
  for (const auto& [point, picture] : cases) {
    Raster raster(3, 3, 0, 1);
    EXPECT_EQ(Draw(raster, view, {point}), picture.find('#') == std::string::npos ? 0 : 1);
    EXPECT_EQ(Picture(raster), picture) << point.first << ", " << point.second;
  }
}

TEST(Raster, DiscsCoverThePixelsWithinTheirRadiusAndAreClipped) {
  const View view{0, 10, 0, 8, 11, 9};  // one unit per pixel, both increasing from the upper left corner
  for (const double radius : {0.5, 1.0, 1.5, 2.3, 4.0, 5.7, 9.0}) {
    Raster raster(11, 9, radius, 1);
    for (int y = -11; y <= 19; ++y)
      for (int x = -11; x <= 21; ++x) {
        std::string expected;
        for (int row = 0; row < 9; ++row, expected += '\n')
          for (int column = 0; column < 11; ++column) expected += std::hypot(column - x, row - y) <= radius ? '#' : '.';
        raster.Clear();
        const size_t drawn = Draw(raster, view, {{x, y}});
        ASSERT_EQ(Picture(raster), expected) << "radius " << radius << " at " << x << ", " << y;
        ASSERT_TRUE(drawn == 1 || expected.find('#') == std::string::npos);
      }
  }
}

TEST(Raster, OnDenseScreensAPixelIsASquare) {
  const View view{0, 3, 0, 3, 4, 4};
  Raster two(4, 4, 0, 2), three(4, 4, 0, 3);
  Draw(two, view, {{1, 1}, {3, 3}, {-1, 2}});
  EXPECT_EQ(Picture(two), "....\n.##.\n###.\n#..#\n");
  Draw(three, view, {{2, 2}, {-1, 0}});
  EXPECT_EQ(Picture(three), "#...\n####\n.###\n.###\n");
}

TEST(Raster, HugeDiscsAndTinySurfacesAreHarmless) {
  Raster huge(3, 2, 1e12, 1);
  EXPECT_EQ(Draw(huge, {0, 2, 1, 0, 3, 2}, {{0, 0}, {2, 1}, {300, 0}, {1e30, 0}}), 3);
  EXPECT_EQ(Picture(huge), "###\n###\n");
  Raster dot(1, 1, 1e12, 1);
  EXPECT_EQ(Draw(dot, {0, 1, 1, 0, 1, 1}, {{0, 0}}), 0);
  Raster line(1, 500, 3, 1);
  EXPECT_EQ(Draw(line, {0, 1, 1, 0, 1, 500}, {{0, 0}}), 0);
  Raster flat(50, 50, 0, 1);
  EXPECT_EQ(Draw(flat, {5, 5, 1, 0, 50, 50}, {{5, 1}}), 0) << "an axis without extent";
}

}  // namespace
}  // namespace pallomir
