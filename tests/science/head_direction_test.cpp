#include "pallomir/science/behaviour/head_direction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace pallomir {
namespace {

TEST(HeadDirection, SmoothsRoundTheCircle) {
  // Dwell time in bins 59, 0 and 1 only, all spikes in bin 0.
  const std::vector<double> direction = {359.9, 0, 5.99, 6, kNotKnown}, hold = {1e6, 5e5, 5e5, 2e6, 9e6};
  const DirectionTuning tuning = DirectedSamples(direction, hold).TuningOf(std::vector<int64_t>{1, 2, 2, 4, -1});
  EXPECT_EQ(tuning.SpikesUsed, 3);
  EXPECT_EQ(tuning.Spikes[0], 3);
  EXPECT_EQ(tuning.Dwell[59], 1);
  EXPECT_EQ(tuning.Dwell[0], 1);
  EXPECT_EQ(tuning.Dwell[1], 2);
  const double g = std::exp(-0.5), h = std::exp(-2.0);  // one and two bins away, sigma 1
  const double left = 3 * g / (1 + g + 2 * h), middle = 3 / (1 + 3 * g), right = 3 * g / (2 + g + h);
  EXPECT_NEAR(tuning.Rate[59], left, 1e-12);
  EXPECT_NEAR(tuning.Rate[0], middle, 1e-12);
  EXPECT_NEAR(tuning.Rate[1], right, 1e-12);
  EXPECT_TRUE(std::isnan(tuning.Rate[30]));
  EXPECT_EQ(tuning.Coverage, 0.05);
  EXPECT_NEAR(tuning.PeakRate, middle, 1e-12);
  const double degree = std::acos(-1.0) / 180;
  const double x = (left + middle) * std::cos(3 * degree) + right * std::cos(9 * degree);
  const double y = (middle - left) * std::sin(3 * degree) + right * std::sin(9 * degree);
  EXPECT_NEAR(tuning.VectorLength, std::hypot(x, y) / (left + middle + right), 1e-12);
  EXPECT_NEAR(tuning.VectorDirection, std::fmod(std::atan2(y, x) / degree + 360, 360), 1e-9);
}

TEST(HeadDirection, WithoutSpikesOrDirectionsHasNoVector) {
  const std::vector<double> hold = {1e6, 1e6};
  const DirectionTuning silent = DirectedSamples(std::vector<double>{10, 200}, hold).TuningOf({});
  EXPECT_TRUE(std::isnan(silent.VectorLength) && std::isnan(silent.VectorDirection));
  EXPECT_EQ(silent.PeakRate, 0);
  const DirectionTuning blind =
      DirectedSamples(std::vector<double>{kNotKnown, kNotKnown}, hold).TuningOf(std::vector<int64_t>{0, 1});
  EXPECT_TRUE(std::isnan(blind.VectorLength) && std::isnan(blind.PeakRate));
  EXPECT_EQ(blind.SpikesUsed, 0);
  EXPECT_EQ(blind.Coverage, 0);
}

}  // namespace
}  // namespace pallomir
