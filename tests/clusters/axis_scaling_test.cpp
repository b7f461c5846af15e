#include "pallomir/clusters/axis_scaling.h"

#include <gtest/gtest.h>

#include "pallomir/session/start_up.h"

namespace pallomir {
namespace {

using Range = std::pair<float, float>;

struct AxisScaling : ::testing::Test {
  Session session;
  AxisScaling() { InitialiseSession(session); }
  Range Axis(int p) const { return {session.AxisMinimum[p], session.AxisMaximum[p]}; }
};

TEST_F(AxisScaling, StepsUseTheCurrentWidthOfEachShownAxis) {
  session.AxisMinimum[1] = -50;
  session.AxisMaximum[1] = 0;
  ScaleUp(session);
  EXPECT_EQ(Axis(0), Range(20, 80));
  EXPECT_EQ(Axis(1), Range(-40, -10));
  ScaleDown(session);
  EXPECT_EQ(Axis(0), Range(8, 92));
  EXPECT_EQ(Axis(1), Range(-46, -4));
  session.DataMinimum.fill(-7);
  session.DataMaximum.fill(7);
  ScaleDefaults(session);
  EXPECT_EQ(Axis(0), Range(-7, 7));
  EXPECT_EQ(Axis(1), Range(-7, 7));
  EXPECT_EQ(Axis(2), Range(0, 100)) << "not on view";
}

TEST_F(AxisScaling, ChangesOnlyTheTypedEndOfOneOrAll134Axes) {
  SetAxis(session, 1, {std::nullopt, 50});
  EXPECT_EQ(Axis(1), Range(0, 50));
  SetAllAxes(session, {-2, std::nullopt});
  EXPECT_EQ(Axis(0), Range(-2, 100));
  EXPECT_EQ(Axis(1), Range(-2, 50));
  EXPECT_EQ(Axis(133), Range(-2, 100));
  EXPECT_EQ(Axis(134), Range(0, 100));
}

}  // namespace
}  // namespace pallomir
