#include "pallomir/projection/view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pallomir/session/start_up.h"

namespace pallomir {
namespace {

struct Views : ::testing::Test {
  Session session;
  Views() {
    InitialiseSession(session);
    session.AxisMinimum.fill(-20);
    session.AxisMaximum.fill(60);
  }
};

TEST_F(Views, ValuesGrowUpwardAndPosYDownward) {
  View view = ViewOf(session, 401, 201);
  EXPECT_EQ(std::pair(view.PixelX(-20), view.PixelX(60)), std::pair(0.0, 400.0));
  EXPECT_EQ(std::pair(view.PixelY(-20), view.PixelY(60)), std::pair(200.0, 0.0));
  session.YParameter = kPosY;
  view = ViewOf(session, 401, 201);
  EXPECT_EQ(std::pair(view.PixelY(-20), view.PixelY(60)), std::pair(0.0, 200.0));
  EXPECT_NEAR(view.ValueX(view.PixelX(-3.3)), -3.3, 1e-9);
  EXPECT_NEAR(view.ValueY(view.PixelY(1000)), 1000, 1e-9);
  session.XParameter = kPosY;
  EXPECT_EQ(ViewOf(session, 401, 201).PixelX(60), 400) << "only the vertical axis is reversed";
}

TEST_F(Views, WithoutExtentCannotBeDrawn) {
  EXPECT_TRUE(ViewOf(session, 2, 2).Drawable());
  EXPECT_FALSE(ViewOf(session, 1, 100).Drawable());
  EXPECT_FALSE(ViewOf(session, 100, 1).Drawable());
  for (const float maximum : {-20.0F, NAN, std::numeric_limits<float>::infinity()}) {
    session.AxisMaximum[1] = maximum;
    EXPECT_FALSE(ViewOf(session, 100, 100).Drawable()) << maximum;
  }
}

TEST_F(Views, ZoomTakesAnyTwoOppositeCorners) {
  const auto axes = [&] {
    return std::array{session.AxisMinimum[0], session.AxisMaximum[0], session.AxisMinimum[1], session.AxisMaximum[1]};
  };
  const Vertex corners[] = {{1, 2}, {3, 2}, {3, 8}, {1, 8}};
  for (int k = 0; k < 4; ++k) {
    session.AxisMinimum.fill(-20);
    EXPECT_TRUE(ZoomTo(session, corners[k], corners[(k + 2) % 4]));
    EXPECT_EQ(axes(), (std::array{1.0F, 3.0F, 2.0F, 8.0F}));
  }
  EXPECT_EQ(session.AxisMaximum[2], 60) << "not on view";
  for (const Vertex& opposite : {Vertex{1, 2}, {1, 9}, {9, 2}, {NAN, 9}, {9, std::numeric_limits<float>::infinity()}})
    EXPECT_FALSE(ZoomTo(session, {1, 2}, opposite));
  EXPECT_EQ(axes(), (std::array{1.0F, 3.0F, 2.0F, 8.0F}));
}

TEST(AxisTicks, AreAtRoundValues) {
  const std::tuple<double, double, std::vector<std::string>> cases[] = {
      {0, 100, {"0", "20", "40", "60", "80", "100"}},
      {0, 35, {"0", "5", "10", "15", "20", "25", "30", "35"}},
      {0, 40, {"0", "10", "20", "30", "40"}},
      {60, -20, {"-20", "0", "20", "40", "60"}},
      {-0.5, 0.4, {"-0.4", "-0.2", "0", "0.2", "0.4"}},
      {-3.4e38, 3.4e38, {"-3E+38", "-2E+38", "-1E+38", "0", "1E+38", "2E+38", "3E+38"}},
      {1e9, 1.2e9, {"1E+09", "1.05E+09", "1.1E+09", "1.15E+09", "1.2E+09"}}};
  for (const auto& [from, to, texts] : cases) {
    std::vector<std::string> found;
    for (const Tick& tick : AxisTicks(from, to, 5)) found.push_back(tick.Text);
    EXPECT_EQ(found, texts) << from << " to " << to;
  }
}

TEST(AxisTicks, AreFewAndInsideWhateverTheRange) {
  constexpr float inf = std::numeric_limits<float>::infinity();
  const float ends[] = {0,      -1,     1,     1.5F,          1.0000001F, 3.4e38F, -3.4e38F,
                        1e-38F, 1e-45F, 1e15F, 1.0000001e15F, inf,        -inf,    NAN};
  for (const double from : ends)
    for (const double to : ends)
      for (const int count : {0, 1, 5, 10}) {
        const std::vector<Tick> ticks = AxisTicks(from, to, count);
        EXPECT_LE(ticks.size(), static_cast<size_t>(2 * count + 2)) << from << " to " << to;
        for (const Tick& tick : ticks)
          EXPECT_TRUE(tick.Value >= std::min(from, to) && tick.Value <= std::max(from, to)) << from << " to " << to;
      }
}

}  // namespace
}  // namespace pallomir
