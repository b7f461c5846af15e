#include "pallomir/projection/density.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "pallomir/clusters/classify.h"
#include "pallomir/projection/draw_points.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

constexpr int kSide = 101;  // a pixel for each unit

/// Paints the points of a session, white for no cluster and a level of blue for each cluster, on black.
struct Density : ::testing::Test {
  UniformNumbers random{5};
  std::array<uint32_t, 256> palette{};
  std::vector<uint32_t> pixels;
  size_t drawn = 0;

  Density() {
    palette[ColourCode(0)] = 0xFFFFFFFF;
    for (int c = 1; c <= kClusters; ++c) palette[ColourCode(c)] = 0xFF000000U + static_cast<uint32_t>(200 + c);
  }
  void Paint(const Session& session, int cell = 1, ParameterPair pair = {}, uint32_t ground = 0xFF000000,
             const DrawSettings& settings = {}) {
    pixels.assign(size_t{kSide} * kSide, ground);
    DensityRaster raster(kSide, kSide, cell, ColourCode(0));
    const View view = ViewOf(session, pair, kSide, kSide);
    drawn = DrawDensity(session, pair, view, settings, 0, SIZE_MAX, random, raster);
    raster.Paint({pixels.data(), kSide, kSide, kSide}, palette, ground);
  }
  uint32_t At(int x, int y) const { return pixels[static_cast<size_t>(100 - y) * kSide + x]; }
  uint32_t Red(int x, int y) const { return At(x, y) >> 16U & 0xFF; }
  uint32_t Blue(int x, int y) const { return At(x, y) & 0xFF; }
};

std::vector<Vertex> Points(std::initializer_list<std::pair<Vertex, int>> places) {
  std::vector<Vertex> points;
  for (const auto& [at, count] : places) points.insert(points.end(), static_cast<size_t>(count), at);
  return points;
}

TEST_F(Density, ShadesAreEvenStepsOfTheLogarithm) {
  const Session session = SessionWith(Points({{{10, 10}, 1}, {{20, 10}, 10}, {{30, 10}, 100}, {{40, 10}, 10'000}}));
  Paint(session);
  EXPECT_EQ(drawn, 10'111);
  EXPECT_EQ(At(50, 50), 0xFF000000);
  EXPECT_EQ(At(40, 10), 0xFFFFFFFF);
  EXPECT_GE(Red(10, 10), 70) << "a lone point is seen";
  EXPECT_NEAR(Red(20, 10) - Red(10, 10), (255 - Red(10, 10)) / 4.0, 2);
  EXPECT_NEAR(Red(30, 10) - Red(10, 10), (255 - Red(10, 10)) / 2.0, 2);
  Paint(session, 1, {}, 0xFFFFFFFF);
  EXPECT_EQ(At(10, 10), 0xFFFFFFFF) << "white on white";
}

TEST_F(Density, ClustersAreSeenInTheirColourOnAScaleOfTheirOwn) {
  Session session = SessionWith(Points({{{10, 10}, 5000}, {{50, 50}, 1000}, {{50, 51}, 10}, {{52, 50}, 1}}));
  session.Points.Column(2)[6005] = 1;  // among those at (50, 51)
  AddBoundary(session, 4, RectangleOf(45, 45, 60, 60));
  AddBoundary(session, 7, RectangleOf(45, 50.5F, 60, 60));
  AddBoundary(session, 7, RectangleOf(0.5F, 0, 2, 100, 2, 1));
  ClassifyAllClusters(session);
  Paint(session);
  EXPECT_EQ(At(10, 10), 0xFFFFFFFF);
  EXPECT_EQ(Blue(50, 50), 204);
  EXPECT_EQ(Red(50, 50), 0);
  EXPECT_GT(Blue(50, 51), Blue(52, 50));
  EXPECT_LT(Blue(50, 51), Blue(50, 50));
  session.Display[4] = false;
  Paint(session);
  EXPECT_EQ(At(50, 50), 0xFF000000);
  EXPECT_EQ(At(52, 50), 0xFF000000);
}

TEST_F(Density, AClusterIsSeenAmongMoreLoosePointsAndTheLargerOfTwoWins) {
  for (const bool clusterFirst : {false, true}) {
    Session session = SessionWith(Points({{{50, 50}, 100}}));
    const auto z = session.Points.Column(2);
    // 90 loose points, 6 of cluster 8 and 4 of cluster 3, mixed, or the clusters first.
    for (int k = 0; k < 10; ++k) z[clusterFirst ? k : 9 * k + 5] = k % 5 < 3 ? 8 : 3;
    AddBoundary(session, 8, RectangleOf(7, 0, 9, 100, 2, 1));
    AddBoundary(session, 3, RectangleOf(2, 0, 4, 100, 2, 1));
    ClassifyAllClusters(session);
    Paint(session);
    EXPECT_EQ(At(50, 50), palette[ColourCode(8)]) << clusterFirst;
  }
}

TEST_F(Density, CellsAndParametersAreThoseAskedFor) {
  Session session = SessionWith({{10, 10}, {11, 11}, {12, 12}, {NAN, 5}, {100, 0}, {101, 50}});
  Paint(session, 2);
  EXPECT_EQ(drawn, 4);
  EXPECT_EQ(At(10, 11), At(11, 12)) << "rows are paired from the top";
  EXPECT_NE(At(10, 10), 0xFF000000);
  EXPECT_NE(At(12, 12), 0xFF000000);
  EXPECT_EQ(At(13, 9), 0xFF000000);
  EXPECT_NE(At(100, 0), 0xFF000000) << "the last column and row are half a cell";
  session.Points.Column(5)[0] = 70;
  session.AxisMaximum[5] = 100;
  Paint(session, 1, {5, 1});
  EXPECT_NE(At(70, 10), 0xFF000000);
  EXPECT_NE(At(0, 11), 0xFF000000);
  Paint(session, 1, {}, 0xFF000000, {0.0F, {}});
  EXPECT_EQ(drawn, 0);
}

}  // namespace
}  // namespace pallomir
