#include "pallomir/science/trains/correlogram.h"

#include <gtest/gtest.h>

#include <cmath>

#include "pallomir/science/statistics/poisson.h"

namespace pallomir {
namespace {

TEST(Correlogram, CountsLagsByWholeBins) {
  const LoadedTime time({{0, 1'000'000}, {1'000'500, 2'000'000}});
  const std::vector<ClusterSpike> a = {{500'000, 1}, {999'900, 2}};
  const std::vector<ClusterSpike> b = {{498'000, 3}, {499'001, 4}, {500'000, 1},  {500'000, 5},
                                       {501'999, 6}, {502'000, 7}, {1'000'600, 8}};
  const Correlogram lags = CorrelogramOf(a, b, time, {.WindowMs = 2, .BinMs = 1});
  // -2 to -1, -1 to 0, 0 to 1, 1 to 2 ms; the record in both and the one across the gap are no pairs.
  EXPECT_EQ(lags.Pairs, (std::vector<int64_t>{1, 1, 1, 1}));
  EXPECT_EQ(lags.Width, 1000);
}

TEST(Correlogram, ExpectsWhatSlowChangesGive) {
  Correlogram flat{1000, std::vector<int64_t>(100, 40), {}, {}, {}, {}};
  DeriveExpectation(flat);
  for (const double expected : flat.Expected) EXPECT_NEAR(expected, 40, 1e-12);
  EXPECT_EQ(flat.Low.front(), 25);
  EXPECT_EQ(flat.High.front(), 57);
  Correlogram peak = flat;
  peak.Expected.clear(), peak.Low.clear(), peak.High.clear(), peak.ExcessP.clear();
  peak.Pairs[52] = 140;
  DeriveExpectation(peak);
  EXPECT_LT(peak.Expected[52], 45) << "a narrow peak hardly raises its own expectation";
  EXPECT_LT(peak.ExcessP[52], 1e-20);
  EXPECT_GT(peak.ExcessP[20], 0.1);
}

TEST(Poisson, EqualsTheSums) {
  for (const double mean : {0.3, 4.0, 25.0, 300.0}) {
    double sum = 0, term = std::exp(-mean);
    int64_t low = -1, high = -1;
    for (int64_t n = 0; n < 1000; term *= mean / static_cast<double>(++n)) {
      const double excess = 1 - sum - term / 2;
      if (sum + term < 0.999) {
        EXPECT_NEAR(PoissonExcess(n, mean), excess, 1e-12) << mean << " " << n;
      }
      sum += term;
      if (low < 0 && sum >= 0.005) low = n;
      if (high < 0 && sum >= 0.995) high = n;
    }
    EXPECT_EQ(PoissonQuantile(0.005, mean), low) << mean;
    EXPECT_EQ(PoissonQuantile(0.995, mean), high) << mean;
  }
  EXPECT_EQ(PoissonQuantile(0.995, 0), 0);
  EXPECT_EQ(PoissonExcess(0, 0), 0.5);
}

}  // namespace
}  // namespace pallomir
