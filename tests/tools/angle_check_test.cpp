#include "tools/import/angle_check.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "support/tracks.h"

namespace pallomir {
namespace {

/// An animal that runs along a wavy loop, or to and fro, and looks ahead or anywhere; its angles follow the convention
/// `recorded`.
Positions Running(int samples, const AngleConvention& recorded, bool toAndFro = false, double lookAround = 10) {
  std::vector<SampleRow> rows;
  double x = 500, y = 500;
  for (int i = 0; i < samples; ++i) {
    const double fromX = toAndFro ? (i / 50 % 2) * 180 : i * 2 + 30 * std::sin(i * 0.1);
    const double dx = 4 * std::cos(fromX * std::numbers::pi / 180), dy = 4 * std::sin(fromX * std::numbers::pi / 180);
    const double looks = (recorded.YUp ? -1 : 1) * (fromX + lookAround * std::sin(i * 1.7)) - recorded.Zero;
    rows.push_back(
        {i * 33'000, x + dx / 2, y + dy / 2, std::fmod((recorded.Clockwise ? -looks : looks) + 36'000'000, 360)});
    x += dx;
    y += dy;
  }
  Positions positions = PositionsOf(rows);
  positions.Angles = kVideoAngles;
  return positions;
}

TEST(AngleCheck, SaysWhichConventionFitsARunningAnimal) {
  const std::string assumed =
      "zero +y, clockwise; agreement with the direction of travel, in 1\u202f000 samples of a running animal: ";
  struct Case {
    Positions Recorded;
    std::string Sentence;
  };
  const Case cases[] = {
      {Running(1000, kVideoAngles), assumed + "0.99 of 1, it fits"},
      {Running(1000, {100, true, false}), assumed + "0.98 of 1, it fits"},
      {Running(1000, {0, false, false}),
       assumed + "0.01 of 1, it does not fit; zero +x, counter-clockwise has 0.99: import with --angle-zero +x "
                 "--angle-sense ccw"},
      {Running(1000, {180, true, true}),
       assumed + "-0.01 of 1, it does not fit; zero -x, counter-clockwise has 0.99: import with --angle-zero -x "
                 "--angle-sense ccw"},
      {Running(1000, {215, true, false}),
       assumed + "-0.57 of 1, it does not fit; zero 215 degrees, clockwise has 0.99: import with --angle-zero 215 "
                 "--angle-sense cw"},
      {Running(100, kVideoAngles),
       "zero +y, clockwise; too little running to check it against the direction of travel: 100 samples above 40 "
       "pixels/s"},
      {PositionsOf({{0, 1, 1}}), "none; the direction of travel is used instead"},
  };
  for (const Case& c : cases) EXPECT_EQ(AnglesSentence(CheckAngles(c.Recorded)), c.Sentence);
}

TEST(AngleCheck, SaysWhatItCannotDecide) {
  const AngleCheck line = CheckAngles(Running(1000, kVideoAngles, true));
  EXPECT_TRUE(line.Fits());
  EXPECT_FALSE(line.HasSense);
  EXPECT_TRUE(
      AnglesSentence(line).ends_with("The animal ran to and fro, which does not tell clockwise from "
                                     "counter-clockwise"));
  const AngleCheck random = CheckAngles(Running(1000, kVideoAngles, false, 4000));
  EXPECT_LT(random.Best.Agreement, 0.3);
  EXPECT_NE(AnglesSentence(random).find("and no convention fits"), std::string::npos) << AnglesSentence(random);
}

}  // namespace
}  // namespace pallomir
