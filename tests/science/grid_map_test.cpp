#include "pallomir/science/behaviour/grid_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "pallomir/files/error.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"
#include "support/refusal.h"
#include "support/tracks.h"

namespace pallomir {
namespace {

Map MapOf(int columns, int rows, std::vector<double> values) {
  return {columns, rows, 0, 0, 10, std::move(values)};
}

Map Correlated(const Map& map) {
  return SpatialAutocorrelation(map);
}

TEST(GridMap, BinsAreHalfOpenCellsOnMultiples) {
  const Track track = TrackOf({{0, -0.5, 9.99}, {20'000, 9.999, 10}, {50'000, 10, 29.9}, {90'000, 19.9, 20}});
  const Map occupancy = OccupancyMap(track, 10);
  EXPECT_EQ(occupancy.Columns, 3);
  EXPECT_EQ(occupancy.Rows, 3);
  EXPECT_EQ(occupancy.Left, -10);
  EXPECT_EQ(occupancy.Top, 0);
  EXPECT_EQ(occupancy.Values, (std::vector<double>{0.02, 0, 0, 0, 0.03, 0, 0, 0, 0.07}));
  const SpikeMap spikes = CountSpikes(track, std::vector<int64_t>{0, 0, -1, 3, 2, 1}, occupancy);
  EXPECT_EQ(spikes.Counts.Values, (std::vector<double>{2, 0, 0, 0, 1, 0, 0, 0, 2}));
  EXPECT_EQ(spikes.Mapped, 5);
}

TEST(GridMap, BinSizesFollowTheScale) {
  const std::pair<double, double> cases[] = {{0, 10}, {4, 10}, {3, 8}, {1, 3}, {0.01, 1}, {5.1, 13}};
  for (const auto& [scale, size] : cases) EXPECT_EQ(BinSize(scale), size) << scale;
}

TEST(GridMap, AFarPositionIsRefused) {
  const Track track = TrackOf({{0, 1, 1}, {10, 1e9, 1e9}});
  EXPECT_EQ(Refusal([&] { OccupancyMap(track, 10); }),
            "The positions span 1000000010 x 1000000010 pixels, too much for a map with bins of 10 pixels. The likely "
            "reason is a position far outside the arena.");
  EXPECT_EQ(OccupancyMap(TrackOf({{0, 0, 0}}), 10).Values.size(), size_t{0});
}

TEST(GridMap, SmoothingWeighsAllBinsOfTheKernel) {
  std::vector<double> values(21 * 19, 0);
  Map map = MapOf(21, 19, values);
  map.Values[map.Index(9, 10)] = 3;
  map.Values[map.Index(0, 0)] = 1;
  double sum = 0;
  for (int k = -8; k <= 8; ++k) sum += std::exp(-k * k / 8.0);
  const Map smooth = Smoothed(map);
  for (int row = 0; row < 19; ++row)
    for (int column = 0; column < 21; ++column) {
      const auto at = [&](int dr, int dc) {
        return std::abs(dr) > 8 || std::abs(dc) > 8 ? 0 : std::exp(-(dr * dr + dc * dc) / 8.0) / (sum * sum);
      };
      EXPECT_NEAR(smooth.At(row, column), 3 * at(row - 9, column - 10) + at(row, column), 1e-15);
    }
}

TEST(GridMap, RatesExistWhereTheAnimalWas) {
  const Map occupancy = MapOf(3, 1, {2, 0, 4}), counts = MapOf(3, 1, {6, 0, 0});
  const Map rate = RateMap(counts, occupancy);
  const double g0 = 1, g2 = std::exp(-0.5);  // two bins away, sigma 2; the sum of the kernel cancels
  EXPECT_NEAR(rate.Values[0], 6 * g0 / (2 * g0 + 4 * g2), 1e-12);
  EXPECT_TRUE(std::isnan(rate.Values[1]));
  EXPECT_NEAR(rate.Values[2], 6 * g2 / (2 * g2 + 4 * g0), 1e-12);
  EXPECT_EQ(PeakOf(rate).Column, 0);
  EXPECT_EQ(PeakOf(MapOf(2, 1, {kNotKnown, kNotKnown})).Row, -1);
}

TEST(GridMap, SpatialInformationOfKnownMaps) {
  const double nan = kNotKnown;
  struct Case {
    std::vector<double> Rate, Occupancy;
    double Mean, Bits;
  };
  const Case cases[] = {
      {{4, 0}, {1, 1}, 2, 1},              // half of the bins, one bit
      {{8, 0, 0, 0}, {2, 2, 2, 2}, 2, 2},  // a quarter, two bits
      {{5, 5, nan}, {1, 3, 0}, 5, 0},      // the same everywhere
      {{1, 3}, {3, 1}, 1.5, (3 * std::log2(2 / 3.0) / 1.5 + 3 * 1 / 1.5) / 4},
      {{0, 0}, {1, 1}, 0, nan},
      {{nan}, {0}, nan, nan},
  };
  for (const Case& c : cases) {
    const int bins = static_cast<int>(c.Rate.size());
    const Map rate = MapOf(bins, 1, c.Rate), occupancy = MapOf(bins, 1, c.Occupancy);
    const double mean = MeanRate(rate, occupancy), bits = SpatialInformation(rate, occupancy);
    EXPECT_TRUE(std::isnan(c.Mean) ? std::isnan(mean) : std::abs(mean - c.Mean) < 1e-12) << mean;
    EXPECT_TRUE(std::isnan(c.Bits) ? std::isnan(bits) : std::abs(bits - c.Bits) < 1e-12) << bits;
  }
}

/// Pearson's r by its textbook definition.
double PlainCorrelation(const Map& map, int rowLag, int columnLag) {
  std::vector<double> a, b;
  for (int row = 0; row < map.Rows; ++row)
    for (int column = 0; column < map.Columns; ++column) {
      const int r = row + rowLag, c = column + columnLag;
      if (r < 0 || c < 0 || r >= map.Rows || c >= map.Columns) continue;
      if (std::isnan(map.At(row, column)) || std::isnan(map.At(r, c))) continue;
      a.push_back(map.At(row, column));
      b.push_back(map.At(r, c));
    }
  if (a.size() < 20) return kNotKnown;
  double meanA = 0, meanB = 0, ab = 0, aa = 0, bb = 0;
  const auto count = static_cast<double>(a.size());
  for (size_t i = 0; i < a.size(); ++i) meanA += a[i] / count, meanB += b[i] / count;
  for (size_t i = 0; i < a.size(); ++i) {
    ab += (a[i] - meanA) * (b[i] - meanB);
    aa += (a[i] - meanA) * (a[i] - meanA);
    bb += (b[i] - meanB) * (b[i] - meanB);
  }
  return ab / std::sqrt(aa * bb);
}

TEST(SpatialAutocorrelation, IsPearsonsAtEveryLag) {
  std::mt19937_64 random(3);
  // With an offset at which a difference of sums would lose all digits.
  for (const double offset : {0.0, 1e6}) {
    Map map = MapOf(9, 7, std::vector<double>(63));
    for (double& value : map.Values)
      value = random() % 6 == 0 ? kNotKnown : offset + static_cast<double>(random() % 1000) / 100;
    const Map lags = Correlated(map);
    EXPECT_EQ(lags.Columns, 17);
    EXPECT_EQ(lags.Rows, 13);
    EXPECT_EQ(lags.Left + 8.5 * lags.Bin, 0);
    EXPECT_EQ(lags.Top + 6.5 * lags.Bin, 0);
    EXPECT_NEAR(lags.At(6, 8), 1, 1e-12);
    for (int row = -6; row <= 6; ++row)
      for (int column = -8; column <= 8; ++column) {
        const double expected = PlainCorrelation(map, row, column), found = lags.At(row + 6, column + 8);
        ASSERT_EQ(std::isnan(found), std::isnan(expected)) << row << " " << column;
        if (!std::isnan(expected)) {
          EXPECT_NEAR(found, expected, 1e-9) << row << " " << column;
        }
      }
  }
}

TEST(SpatialAutocorrelation, PatchesWithoutVarianceHaveNone) {
  // The left half is flat: shifted by the width of the other half, only flat bins overlap.
  Map map = MapOf(10, 10, std::vector<double>(100, 0.1));
  for (int row = 0; row < 10; ++row)
    for (int column = 5; column < 10; ++column) map.Values[map.Index(row, column)] = 0.1 + row * column / 7.0;
  const Map lags = Correlated(map);
  for (int column = -9; column <= 9; ++column)
    EXPECT_EQ(std::isnan(lags.At(9, column + 9)), std::abs(column) >= 5) << column;
  for (const double r : Correlated(MapOf(6, 5, std::vector<double>(30, 1.0 / 3))).Values) EXPECT_TRUE(std::isnan(r));
  EXPECT_EQ(Correlated(MapOf(0, 0, {})).Values.size(), size_t{0});
  EXPECT_EQ(Correlated(MapOf(1, 1, {2})).Values.size(), size_t{1});
}

TEST(SpatialAutocorrelation, AFieldOfOneBinIsFoundWhereverItIs) {
  for (const size_t bin : {0, 13, 29}) {
    Map map = MapOf(6, 5, std::vector<double>(30));
    map.Values[bin] = 8;
    EXPECT_NEAR(Correlated(map).At(4, 5), 1, 1e-12) << bin;
  }
}

TEST(SpatialAutocorrelation, TheUserCanStopIt) {
  const Map map = MapOf(400, 400, std::vector<double>(160'000, 1));
  EXPECT_THROW(SpatialAutocorrelation(map, Progress([](double) { return false; })), Interrupted);
}

}  // namespace
}  // namespace pallomir
