#include "pallomir/science/behaviour/tracking.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/tracks.h"

namespace pallomir {
namespace {

TEST(Tracking, ASampleHoldsUntilTheNextButNotLong) {
  const std::pair<std::vector<int64_t>, std::vector<double>> cases[] = {
      {{}, {}},
      {{5}, {0}},
      {{0, 30'000, 70'000}, {30'000, 40'000, 35'000}},                        // the median of 30 and 40 ms
      {{0, 100'000, 200'001, 230'000}, {100'000, 100'000, 29'999, 100'000}},  // the median is 100 ms
      {{0, 1, 1, 500'000}, {1, 0, 100'000, 1}},
      {{0, 300'000}, {100'000, 100'000}},
  };
  for (const auto& [times, holds] : cases) {
    std::vector<SampleRow> rows;
    for (const int64_t time : times) rows.push_back({time, 1, 1});
    EXPECT_EQ(TrackOf(rows).Hold, holds);
  }
}

TEST(Tracking, ShortLostRunsAreInterpolated) {
  const Track track = TrackOf({{0, 0, 0},
                               {100'000, 10, 20, 90},
                               {200'000, 0, 0, 45},
                               {300'000, 0, 0},
                               {350'000, 20, 10, 180},
                               {400'000, 0, 0},
                               {600'001, 30, 30}});
  const std::vector<double> x = {kNotKnown, 10, 14, 18, 20, kNotKnown, 30};
  for (size_t i = 0; i < x.size(); ++i) {
    EXPECT_EQ(std::isnan(track.X[i]), std::isnan(x[i])) << i;
    if (!std::isnan(x[i])) {
      EXPECT_NEAR(track.X[i], x[i], 1e-12) << i;
    }
  }
  EXPECT_NEAR(track.Y[2], 16, 1e-12);
  EXPECT_TRUE(std::isnan(track.Direction[2]));
  EXPECT_EQ(track.Lost, 2);
  EXPECT_EQ(track.Interpolated, 2);
}

TEST(Tracking, PositionsBetweenSamplesAreThoseOfALostSampleThere) {
  const std::vector<SampleRow> rows = {{100'000, 10, 20}, {200'000, 0, 0}, {350'000, 20, 10}, {600'001, 30, 30}};
  const SeenPositions seen(PositionsOf(rows));
  EXPECT_NEAR(seen.At(200'000)->X, TrackOf(rows).X[1], 1e-12);
  EXPECT_NEAR(seen.At(200'000)->Y, TrackOf(rows).Y[1], 1e-12);
  EXPECT_EQ(seen.At(350'000)->X, 20);
  for (const int64_t unknown : {99'999, 350'001, 600'002}) EXPECT_FALSE(seen.At(unknown)) << unknown;
}

TEST(Tracking, OnlyTheTimeRangeCounts) {
  const Positions positions = PositionsOf({{10, 1, 1}, {20, 2, 2}, {30, 3, 3}, {40, 4, 4}});
  EXPECT_EQ(TrackWithin(positions, {20, 30}).Time, (std::vector<int64_t>{20, 30}));
  EXPECT_EQ(TrackWithin(positions, {21, 29}).Time.size(), size_t{0});
  EXPECT_EQ(TrackWithin(positions, {40, 20}).Time.size(), size_t{0});
}

TEST(Tracking, ASpikeBelongsToTheSampleInWhoseHoldTimeItFalls) {
  const Track track = TrackOf({{1000, 1, 1}, {31'000, 2, 2}, {31'000, 3, 3}, {231'000, 4, 4}});
  const std::vector<int64_t> spikes = {999, 1000, 30'999, 31'000, 130'999, 131'000, 230'999, 231'000, 260'999, 261'000};
  EXPECT_EQ(SamplesOfSpikes(track, spikes), (std::vector<int64_t>{-1, 0, 0, 2, 2, -1, -1, 3, 3, -1}));
  EXPECT_EQ(SamplesOfSpikes({}, spikes), std::vector<int64_t>(10, -1));
}

TEST(Tracking, TravelHasADirectionWhenFastEnough) {
  // Along +x, then along +y, which is downward, then at rest: 1 pixel in 10 ms is 100 pixels/s.
  std::vector<SampleRow> rows;
  for (int i = 0; i <= 30; ++i) rows.push_back({i * 10'000, 100.0 + i, 50});
  for (int i = 31; i <= 60; ++i) rows.push_back({i * 10'000, 130, 20.0 + i});
  for (int i = 61; i <= 90; ++i) rows.push_back({i * 10'000, 130, 80});
  rows[10].X = rows[10].Y = 0;
  const std::vector<double> direction = DirectionsOfTravel(TrackOf(rows), 20);
  EXPECT_NEAR(direction[0], 0, 1e-9);
  EXPECT_TRUE(std::isnan(direction[10]));
  EXPECT_NEAR(direction[30], 315, 1e-9);
  EXPECT_NEAR(direction[45], 270, 1e-9);
  EXPECT_TRUE(std::isnan(direction[80]));
  EXPECT_TRUE(std::isnan(DirectionsOfTravel(TrackOf(rows), 101)[20]));
  EXPECT_NEAR(DirectionsOfTravel(TrackOf({{0, 5, 5}, {50'000, 4, 4}}), 20)[0], 135, 1e-9);
  EXPECT_TRUE(std::isnan(DirectionsOfTravel(TrackOf({{7, 5, 5}}), 20)[0]));
}

}  // namespace
}  // namespace pallomir
