#include "pallomir/science/behaviour/place_measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "pallomir/science/statistics/pearson.h"
#include "support/tracks.h"

namespace pallomir {
namespace {

/// A map of bins of 2.5 cm, 10 pixels, from a rate by row and column; NaN where it is not known.
Map MapOf(int rows, int columns, const std::function<double(int, int)>& rate) {
  Map map{columns, rows, 0, 0, 10, {}};
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column) map.Values.push_back(rate(row, column));
  return map;
}

Map Filled(const Map& map, double value) {
  Map filled = map;
  for (double& v : filled.Values) v = std::isnan(v) ? 0 : value;
  return filled;
}

/// Of a map of rates, taken as counts in a second a bin.
PlaceMeasures Of(const Map& rate) {
  Map counts = rate;
  for (double& v : counts.Values) v = std::isnan(v) ? 0 : v;
  return PlaceMeasuresOf(counts, Filled(rate, 1), rate, 100, 4);
}

TEST(PlaceMeasures, OfOneBinInFourAreThoseOfTheFormulas) {
  const PlaceMeasures measures = Of(MapOf(8, 8, [](int row, int) { return row < 2 ? 4 : 0; }));
  EXPECT_DOUBLE_EQ(measures.BitsPerSpike.Value, 2);
  EXPECT_DOUBLE_EQ(measures.BitsPerSecond.Value, 2);
  EXPECT_DOUBLE_EQ(measures.Sparsity.Value, 0.25);
  EXPECT_DOUBLE_EQ(measures.Selectivity.Value, 4);
  ASSERT_EQ(measures.Fields.size(), 1U);
  const Field& field = measures.Fields.front();
  EXPECT_EQ(field.Area, 16 * 6.25);
  EXPECT_DOUBLE_EQ(field.X, 10);
  EXPECT_DOUBLE_EQ(field.Y, 2.5);
  EXPECT_EQ(field.Rate, 4);
}

TEST(PlaceMeasures, FieldsAreJoinedBySidesLargeEnoughAndLoudEnough) {
  const auto rate = [](int row, int column) {
    if (row < 3 && column < 3) return 10.0;                             // 9 bins
    if (row >= 3 && row < 6 && column >= 3 && column < 6) return 20.0;  // touches the first at a corner only
    if (row >= 8 && column < 4) return 0.9;                             // too quiet
    if (row < 2 && column >= 8) return 15.0;                            // 8 bins are too few
    return 0.0;
  };
  const PlaceMeasures measures = Of(MapOf(12, 12, rate));
  ASSERT_EQ(measures.Fields.size(), 2U);
  EXPECT_EQ(measures.Fields[0].Peak, 20);
  EXPECT_EQ(measures.Fields[1].Bins.size(), 9U);
}

TEST(PlaceMeasures, CoherenceComparesABinWithItsNeighbours) {
  const Map slope = MapOf(10, 10, [](int row, int column) { return 1.0 + row + column; });
  EXPECT_GT(Of(slope).Coherence.Value, 2);
  const Map board = MapOf(10, 10, [](int row, int column) { return (row + column) % 2 == 0 ? 8.0 : 1.0; });
  EXPECT_LT(std::abs(Of(board).Coherence.Value), 1.2) << "four neighbours of each colour";
  EXPECT_FALSE(Of(MapOf(10, 10, [](int, int) { return 3.0; })).Coherence.Known());
}

TEST(BorderScore, IsHighAlongAWallAndLowInTheMiddle) {
  const auto wall = MapOf(20, 20, [](int, int column) { return column < 2 ? 5.0 : 0.0; });
  // All of the left wall; the mean distance from a wall is 0.93 of a bin: near the corners another wall is closer.
  EXPECT_NEAR(BorderScore(wall, 4).Value, (1 - 0.095) / (1 + 0.095), 0.01);
  const auto middle =
      MapOf(20, 20, [](int row, int column) { return row > 5 && row < 14 && column > 5 && column < 14 ? 5.0 : 0.0; });
  EXPECT_EQ(BorderScore(middle, 4).Value, -1);
  const auto small = MapOf(20, 20, [](int row, int column) { return row < 5 && column < 6 ? 5.0 : 0.0; });
  EXPECT_EQ(BorderScore(small, 4).Value, -1) << "30 bins are 187.5 cm2";
  EXPECT_FALSE(BorderScore(MapOf(20, 20, [](int, int) { return 0.0; }), 4).Known());
  // The wall's bin is the first visited one within 8.
  const auto round = MapOf(20, 20, [](int, int column) { return column < 7 ? kNotKnown : column < 9 ? 5.0 : 0.0; });
  EXPECT_GT(BorderScore(round, 4).Value, 0);
  const auto far = MapOf(20, 20, [](int, int column) { return column < 8 ? kNotKnown : column < 10 ? 5.0 : 0.0; });
  EXPECT_LT(BorderScore(far, 4).Value, 0);
}

TEST(Pearson, NeedsPairsAndVariation) {
  std::vector<double> a, b;
  for (int i = 0; i < 19; ++i) a.push_back(i), b.push_back(2 * i + 1);
  EXPECT_TRUE(std::isnan(PearsonOf(a, b)));
  a.push_back(kNotKnown), b.push_back(3);
  EXPECT_TRUE(std::isnan(PearsonOf(a, b))) << "the pair is not finite";
  a.push_back(20), b.push_back(41);
  EXPECT_DOUBLE_EQ(PearsonOf(a, b), 1);
  EXPECT_TRUE(std::isnan(PearsonOf(a, std::vector<double>(a.size(), 7))));
}

/// Runs along a line of 40 bins there and back, one bin a sample, 100 ms a sample.
std::vector<SampleRow> Shuttle(int minutes) {
  std::vector<SampleRow> rows;
  for (int i = 0; i < minutes * 600; ++i) {
    const int step = i % 80;
    rows.push_back({i * int64_t{100'000}, (step < 40 ? step : 79 - step) * 10 + 5.0, 5});
  }
  return rows;
}

TEST(Stability, ComparesHalvesAndMinutes) {
  const Positions walk = PositionsOf(Shuttle(10));
  const LoadedTime time({{0, walk.Time.back()}});
  const Track track = TrackOver(walk, time);
  const Map frame = OccupancyMap(track, 10);
  const std::vector<int32_t> bins = BinsOfSamples(track, frame);
  // Fires in bin 10 in the first half and in bin 30 in the second.
  std::vector<int64_t> moving, steady;
  for (size_t i = 0; i < bins.size(); ++i) {
    if (bins[i] == (2 * i < bins.size() ? 10 : 30)) moving.push_back(static_cast<int64_t>(i));
    if (bins[i] == 10) steady.push_back(static_cast<int64_t>(i));
  }
  const Stability halves(Stability::Split::Halves, track, bins, frame, time, {});
  const Stability minutes(Stability::Split::Minutes, track, bins, frame, time, {});
  EXPECT_LT(halves.Of(moving).Value, 0);
  EXPECT_GT(minutes.Of(moving).Value, 0.8);
  EXPECT_GT(halves.Of(steady).Value, 0.99);
  EXPECT_FALSE(halves.Of(std::vector<int64_t>{}).Known());
}

TEST(TrackOver, KeepsTheWantedSpeedsAndLosesJumps) {
  // 40 cm/s for a second, a rest of a second, and a position 10 m away.
  std::vector<SampleRow> rows;
  for (int i = 0; i <= 20; ++i) rows.push_back({i * int64_t{50'000}, 100.0 + 8 * i, 100});
  for (int i = 1; i <= 20; ++i) rows.push_back({1'000'000 + i * int64_t{50'000}, 260, 100});
  rows[10].X = 4100;
  const Positions positions = PositionsOf(rows);
  const LoadedTime time({{0, 2'000'000}});
  const Track all = TrackOver(positions, time);
  EXPECT_EQ(all.X[10], 4100);
  const Track tame = TrackOver(positions, time, {.JumpCm = 100});
  EXPECT_NEAR(tame.X[10], 180, 1e-9) << "interpolated";
  EXPECT_NEAR(tame.Speed[5], 40, 1e-9);
  EXPECT_EQ(tame.Speed[35], 0);
  const Track running = TrackOver(positions, time, {.SlowestCm = 2.5, .JumpCm = 100});
  EXPECT_FALSE(std::isnan(running.X[5]));
  EXPECT_TRUE(std::isnan(running.X[35]));
  EXPECT_EQ(running.Time.size(), rows.size());
}

}  // namespace
}  // namespace pallomir
