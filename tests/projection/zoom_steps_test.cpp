#include "pallomir/projection/zoom_steps.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pallomir {
namespace {

Session SessionWithRanges() {
  Session session;
  session.XParameter = 0;
  session.YParameter = 1;
  session.AxisMaximum[0] = 100;
  session.AxisMinimum[1] = -10;
  session.AxisMaximum[1] = 10;
  return session;
}

TEST(ZoomSteps, TheValueUnderThePointerStays) {
  Session session = SessionWithRanges();
  ASSERT_TRUE(ZoomAbout(session, {25, 5}, 0.5));
  EXPECT_EQ(session.AxisMinimum[0], 12.5F);
  EXPECT_EQ(session.AxisMaximum[0], 62.5F);
  EXPECT_EQ(session.AxisMinimum[1], -2.5F);
  EXPECT_EQ(session.AxisMaximum[1], 7.5F);
  ASSERT_TRUE(MoveView(session, {-2.5, 1}));
  EXPECT_EQ(session.AxisMinimum[0], 10);
  EXPECT_EQ(session.AxisMaximum[1], 8.5F);
}

TEST(ZoomSteps, RefuseWhatCannotBeDrawn) {
  Session session = SessionWithRanges();
  int steps = 0;
  while (steps < 1000 && ZoomAbout(session, {25, 5}, 0.8)) ++steps;
  EXPECT_LT(steps, 1000);
  EXPECT_GT(session.AxisMaximum[0], session.AxisMinimum[0]);
  for (steps = 0; steps < 2000 && ZoomAbout(session, {25, 5}, 1.25); ++steps) {
  }
  EXPECT_LT(steps, 2000);
  EXPECT_TRUE(std::isfinite(session.AxisMaximum[0] - session.AxisMinimum[0]));
}

TEST(ZoomSteps, GoBackWithinEachProjection) {
  Session session = SessionWithRanges();
  ZoomSteps steps;
  EXPECT_FALSE(steps.Back(session));
  steps.Keep(session);
  ZoomAbout(session, {25, 5}, 0.5);
  steps.Keep(session);
  steps.Keep(session);
  ZoomAbout(session, {25, 5}, 0.5);
  session.XParameter = 2;
  EXPECT_FALSE(steps.Back(session)) << "another projection has steps of its own";
  session.XParameter = 0;
  EXPECT_TRUE(steps.Back(session));
  EXPECT_EQ(session.AxisMinimum[0], 12.5F);
  EXPECT_TRUE(steps.Back(session));
  EXPECT_EQ(session.AxisMinimum[0], 0);
  EXPECT_FALSE(steps.Back(session));
}

}  // namespace
}  // namespace pallomir
