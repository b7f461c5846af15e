#include "pallomir/projection/draw_points.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>

#include "pallomir/clusters/classify.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

constexpr size_t kEnd = SIZE_MAX;

/// Draws everything that is loaded on 201 x 201 pixels.
struct Redraw : ::testing::Test {
  UniformNumbers random{42};
  Raster raster{201, 201, 0, 1};

  size_t Draw(const Session& session, const DrawSettings& settings = {}, size_t begin = 0, size_t end = kEnd) {
    raster.Clear();
    return DrawPoints(session, ViewOf(session, 201, 201), settings, begin, end, random, raster);
  }
  std::set<int> CodesDrawn() const {
    std::set<int> codes;
    for (int row = 0; row < 201; ++row) codes.insert(raster.Row(row).begin(), raster.Row(row).end());
    codes.erase(0);
    return codes;
  }
};

TEST_F(Redraw, RandomSpreadStaysWithinHalfAUnit) {
  Session session = SessionWith(std::vector<Vertex>(20'000, {50, 50}));
  for (const int p : {0, 1}) session.AxisMinimum[p] = 40, session.AxisMaximum[p] = 60;  // 10 pixels per unit
  for (const bool spreadX : {false, true})
    for (const bool spreadY : {false, true}) {
      session.RandomX = spreadX;
      session.RandomY = spreadY;
      Draw(session);
      std::set<int> columns, rows;
      for (int row = 0; row < 201; ++row)
        for (int column = 0; column < 201; ++column)
          if (raster.Row(row)[column]) columns.insert(column), rows.insert(row);
      const std::set<int> exact{100}, spread{95, 96, 97, 98, 99, 100, 101, 102, 103, 104, 105};
      EXPECT_EQ(columns, spreadX ? spread : exact);
      EXPECT_EQ(rows, spreadY ? spread : exact);
    }
}

TEST_F(Redraw, DownsamplingDrawsTheGivenFraction) {
  const Session session = SessionWith(std::vector<Vertex>(40'000, {50, 50}));
  EXPECT_EQ(Draw(session, {0.0F, {}}), 0);
  EXPECT_EQ(Draw(session, {1.0F, {}}), 40'000);
  const size_t first = Draw(session, {0.5F, {}}), second = Draw(session, {0.5F, {}});
  EXPECT_NEAR(static_cast<double>(first), 20'000, 500);  // five standard deviations
  EXPECT_NEAR(static_cast<double>(Draw(session, {0.1F, {}})), 4'000, 300);
  EXPECT_NE(first, second) << "new random numbers for every redraw";
}

TEST_F(Redraw, APointInTwoClustersHasEitherColour) {
  std::vector<Vertex> points(3000, {500, 500});
  points.back() = {50, 50};
  Session session = SessionWith(points);
  for (const int c : {2, 7}) AddBoundary(session, c, RectangleOf(40, 40, 60, 60));
  ClassifyAllClusters(session);
  std::array<int, 33> drawn{}, drawnWithout7{};
  for (int redraw = 0; redraw < 1000; ++redraw) {
    session.Display[7] = redraw % 2 == 0;
    Draw(session);
    ++(session.Display[7] ? drawn : drawnWithout7)[raster.Row(100)[100]];
  }
  EXPECT_NEAR(drawn[ColourCode(2)], 250, 55);  // five standard deviations
  EXPECT_EQ(drawn[ColourCode(2)] + drawn[ColourCode(7)], 500);
  EXPECT_NEAR(drawnWithout7[0], 250, 55) << "the colour is chosen before checking whether it is shown";
  EXPECT_EQ(drawnWithout7[0] + drawnWithout7[ColourCode(2)], 500);
}

TEST_F(Redraw, HiddenClustersAreNotDrawn) {
  Session session = SessionWith({{10, 10}, {50, 50}, {90, 90}});
  EXPECT_EQ(Draw(session), 3) << "before anything is classified";
  AddBoundary(session, 4, RectangleOf(40, 40, 60, 60));
  AddBoundary(session, 30, RectangleOf(80, 80, 99, 99));
  ClassifyAllClusters(session);
  Draw(session);
  EXPECT_EQ(CodesDrawn(), (std::set{ColourCode(0), ColourCode(4), ColourCode(30)}));
  session.Display[0] = false;
  Draw(session);
  EXPECT_EQ(CodesDrawn(), (std::set{ColourCode(4), ColourCode(30)}));
  session.Display[30] = false;
  EXPECT_EQ(Draw(session), 1);
  EXPECT_EQ(CodesDrawn(), (std::set{ColourCode(4)}));
}

TEST_F(Redraw, RecordRangesIncludeTheirBounds) {
  Session session = SessionWith(std::vector<Vertex>(5000, {50, 50}));
  for (size_t i = 0; i < 5000; ++i) session.Points.Column(kRecordSlot)[i] = static_cast<float>(i);
  using Ranges = std::vector<std::pair<float, float>>;
  const std::pair<Ranges, size_t> cases[] = {
      {{}, 0},      {{{10, 19}}, 10}, {{{10, 19}, {15, 24}}, 15}, {{{0, 0}, {4999, 9999}}, 2}, {{{2000, 2100}}, 101},
      {{{9, 8}}, 0}};
  for (const auto& [ranges, drawn] : cases) EXPECT_EQ(Draw(session, {{}, ranges}), drawn);
}

TEST(PointRadius, IsInThousandthsOfTheWidthAndNoneBelowOne) {
  EXPECT_EQ(PointRadius(0.99F, 2000), 0);
  EXPECT_EQ(PointRadius(1, 2000), 2);
  EXPECT_EQ(PointRadius(2.5F, 400), 1);
}

TEST_F(Redraw, BatchesDrawEveryVisiblePointOnce) {
  std::vector<Vertex> points = {{NAN, 5}, {5, 101}};
  for (int i = 0; i < 6000; ++i) points.push_back({static_cast<float>(i % 100), static_cast<float>(i / 100)});
  const Session session = SessionWith(points);
  EXPECT_EQ(Draw(session), 6000);
  size_t inBatches = 0;
  for (size_t begin = 0; begin < 7000; begin += 999) inBatches += Draw(session, {}, begin, begin + 999);
  EXPECT_EQ(inBatches, 6000);
}

TEST(UniformNumbers, AreUniformAndNotCorrelated) {
  UniformNumbers random(1);
  std::vector<float> numbers(160'007);
  random.Fill(numbers.data(), numbers.size());
  double sum = 0, besides = 0;
  for (size_t i = 0; i < numbers.size(); ++i) {
    ASSERT_TRUE(numbers[i] >= 0 && numbers[i] < 1);
    sum += numbers[i] - 0.5;
    if (i > 0) besides += (numbers[i] - 0.5) * (numbers[i - 1] - 0.5);
  }
  EXPECT_NEAR(sum / 160'007, 0, 0.004);
  EXPECT_NEAR(besides / 160'007, 0, 0.001);
  EXPECT_GT(std::set<float>(numbers.begin(), numbers.end()).size(), 155'000) << "lanes must not repeat each other";
}

}  // namespace
}  // namespace pallomir
