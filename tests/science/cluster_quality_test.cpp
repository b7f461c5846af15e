#include "pallomir/science/waveforms/cluster_quality.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "pallomir/science/statistics/binomial_interval.h"
#include "pallomir/science/statistics/chi_square.h"
#include "pallomir/science/trains/refractory.h"

namespace pallomir {
namespace {

using Rows = std::vector<std::vector<float>>;

/// Members first, then others, as columns; every feature multiplied by its factor.
Isolation IsolationFor(const Rows& members, const Rows& others, const std::vector<float>& factors = {1, 1, 1}) {
  FeatureColumns columns(members.front().size());
  std::vector<uint8_t> member;
  // Interleaved, so that the order does not matter.
  for (size_t i = 0; i < std::max(members.size(), others.size()); ++i)
    for (const Rows* rows : {&others, &members}) {
      if (i >= rows->size()) continue;
      for (size_t f = 0; f < columns.size(); ++f) columns[f].push_back((*rows)[i][f] * factors[f]);
      member.push_back(rows == &members);
    }
  return IsolationOf(columns, member);
}

// Expected numbers: Gauss-Jordan elimination in exact fractions, and a continued fraction for the probabilities.
TEST(ClusterQuality, EqualsSmallCasesComputedByHand) {
  struct Case {
    Rows Members, Others;
    double Distance, LRatio;
  };
  for (const Case& c : {// Covariance 4/3 times the identity: D2 is 3/4 of the squared distance from (0, 0).
                        Case{{{1, 1}, {1, -1}, {-1, 1}, {-1, -1}},
                             {{3, 0}, {0, 4}, {5, 0}, {6, 6}, {-3, -4}},
                             75.0 / 4,
                             0.009216626740176212},
                        Case{{{0, 0}, {4, 2}, {2, 4}, {6, 7}, {-2, 1}},
                             {{10, 0}, {0, 10}, {-8, -9}, {3, -6}, {20, 5}, {7, 8}},
                             9053.0 / 280,
                             0.03422305786864448},
                        Case{{{1, 0, 2}, {2, 1, 0}, {0, 3, 1}, {4, 1, 1}, {2, 2, 5}, {3, -1, 2}},
                             {{9, 0, 0}, {0, 9, 0}, {0, 0, 9}, {-4, -5, 6}, {7, 7, 7}, {2, 1, 2}, {8, -3, 1}},
                             175165.0 / 2646,
                             0.16668100540391964}}) {
    for (const std::vector<float>& units : {std::vector<float>{1, 1, 1}, {1024, 1.0F / 4096, 0.5F}}) {
      const Isolation measured = IsolationFor(c.Members, c.Others, units);
      ASSERT_TRUE(measured.IsolationDistance && measured.LRatio);
      EXPECT_NEAR(*measured.IsolationDistance, c.Distance, 1e-9);
      EXPECT_NEAR(*measured.LRatio, c.LRatio, 1e-9);
      EXPECT_EQ(measured.Spikes, c.Members.size());
      EXPECT_EQ(measured.Others, c.Others.size());
    }
  }
}

TEST(ClusterQuality, IsNotAvailableWhereItIsMeaningless) {
  const Rows four{{1, 1}, {1, -1}, {-1, 1}, {-1, -1}}, far{{9, 9}, {8, 7}, {5, 9}, {9, 5}};
  EXPECT_TRUE(IsolationFor(four, far).IsolationDistance) << "as many others as spikes are enough";
  struct Case {
    const char* Why;
    Rows Members, Others;
  };
  const Isolation few = IsolationFor(four, {{9, 9}, {8, 7}, {5, 9}});
  EXPECT_FALSE(few.IsolationDistance) << "fewer others than spikes";
  EXPECT_TRUE(few.LRatio);
  for (const Case& c : {Case{"no more spikes than features", {{1, 1}, {2, 3}}, far},
                        Case{"features that depend on each other", {{1, 3}, {2, 6}, {4, 12}, {5, 15}}, far},
                        Case{"a feature that is always the same", {{1, 3}, {2, 3}, {4, 3}, {5, 3}}, far}}) {
    const Isolation measured = IsolationFor(c.Members, c.Others);
    EXPECT_FALSE(measured.IsolationDistance || measured.LRatio) << c.Why;
  }
  EXPECT_FALSE(IsolationOf({}, {}).LRatio);
}

TEST(ChiSquare, EqualsKnownValues) {
  struct Case {
    double X;
    int Degrees;
    double Expected;
  };
  // Tabulated quantiles, and a continued fraction for the far tails.
  for (const Case& c :
       {Case{3.841458820694124, 1, 0.05}, Case{0.5, 1, 0.4795001221869535}, Case{5.991464547107979, 2, 0.05},
        Case{7.814727903251179, 3, 0.05}, Case{2.0, 3, 0.5724067044708798}, Case{15.50731305586545, 8, 0.05},
        Case{2.732636793499663, 8, 0.95}, Case{100, 8, 4.269159205144942e-18}, Case{100, 7, 1.0787979671702837e-18},
        Case{700, 16, 1.293377630019383e-138}, Case{1450, 64, 8.14531197492336e-261}, Case{1e-8, 8, 1}})
    EXPECT_NEAR(ChiSquareSurvival(c.X, c.Degrees) / c.Expected, 1, 1e-12) << c.X << ", " << c.Degrees;
  for (const int degrees : {1, 2, 7, 8, 200}) {
    EXPECT_EQ(ChiSquareSurvival(0, degrees), 1);
    EXPECT_EQ(ChiSquareSurvival(-3, degrees), 1);
    EXPECT_EQ(ChiSquareSurvival(INFINITY, degrees), 0);
    EXPECT_TRUE(std::isnan(ChiSquareSurvival(NAN, degrees)));
  }
}

/// `spikes` 100 ms apart, of which `pairs` have one more 1 ms behind.
std::vector<int64_t> Train(int spikes, int pairs) {
  std::vector<int64_t> times;
  for (int i = 0; i < spikes; ++i) {
    times.push_back(100'000 * i);
    if (i < pairs) times.push_back(100'000 * i + 1000);
  }
  return times;
}

RefractoryMeasures MeasuresOf(std::span<const int64_t> times, int64_t duration, double censored = 0) {
  return RefractoryMeasuresOf(times, LoadedTime({{0, duration}}), {.Censored = censored});
}

TEST(Refractory, ContaminationReproducesTheShortIntervals) {
  struct Case {
    int Spikes, Pairs;
    double Censored;
    int64_t Duration;
  };
  for (const Case& c :
       {Case{9999, 1, 0, 1'000'000'000}, Case{5000, 10, 750, 500'000'000}, Case{500, 1, 0, 50'000'000}}) {
    const auto times = Train(c.Spikes, c.Pairs);
    const RefractoryMeasures measures = MeasuresOf(times, c.Duration, c.Censored);
    EXPECT_EQ(measures.Short, c.Pairs);
    EXPECT_EQ(measures.ShortPairs, c.Pairs);
    EXPECT_DOUBLE_EQ(measures.Share.Value.Value, static_cast<double>(c.Pairs) / static_cast<double>(times.size() - 1));
    const auto n = static_cast<double>(times.size()), T = static_cast<double>(c.Duration);
    const double one = measures.ContaminationByOne.Value.Value, many = measures.ContaminationByMany.Value.Value;
    EXPECT_STREQ(measures.ContaminationByOne.Value.Why, "");
    EXPECT_NEAR(2 * (2000 - c.Censored) * n * n * (1 - one) * one / T, c.Pairs, 1e-9 * c.Pairs);
    EXPECT_NEAR((1 - (1 - many) * (1 - many)) * n * n * (2000 - c.Censored) / (T - 2 * n * c.Censored), c.Pairs,
                1e-9 * c.Pairs);
    for (const Estimate& estimate : {measures.Share, measures.ContaminationByOne, measures.ContaminationByMany})
      EXPECT_TRUE(estimate.Low.Value < estimate.Value.Value && estimate.Value.Value < estimate.High.Value);
  }
}

TEST(Refractory, SaysWhatCannotBeComputed) {
  EXPECT_FALSE(MeasuresOf({}, 1'000'000'000).Share.Value.Known());
  EXPECT_FALSE(MeasuresOf(Train(1, 0), 1'000'000'000).ContaminationByOne.Value.Known());
  EXPECT_FALSE(MeasuresOf(Train(50, 1), 1'000'000'000, 2000).ContaminationByMany.Value.Known());
  const RefractoryMeasures many = MeasuresOf(Train(900, 100), 1'000'000'000);
  EXPECT_EQ(many.ContaminationByOne.Value.Value, 0.5);
  EXPECT_STRNE(many.ContaminationByOne.Value.Why, "");
  EXPECT_STRNE(many.ContaminationByOne.High.Why, "");
  const std::vector<int64_t> edge{0, 2000, 3999};
  EXPECT_EQ(MeasuresOf(edge, 1'000'000'000).Short, 1) << "2 ms are not below 2 ms";
}

TEST(Refractory, NoViolationDoesNotProveACleanCluster) {
  const RefractoryMeasures clean = MeasuresOf(Train(2000, 0), 1'000'000'000);
  EXPECT_EQ(clean.ContaminationByOne.Value.Value, 0);
  EXPECT_EQ(clean.ContaminationByOne.Low.Value, 0);
  // With 3.69 expected violations, none is seen with a probability of 2.5 %: (1 - f) f = 3.69 T / (2 * 2 ms * 2000^2).
  const double f = clean.ContaminationByOne.High.Value;
  EXPECT_NEAR((1 - f) * f, -std::log(0.025) * 1e9 / (2 * 2000 * 4e6), 5e-4);
}

TEST(BinomialInterval, IsThatOfClopperAndPearson) {
  // The ends at which the tail sums of the binomial distribution, in 60 digits, are 0.025.
  const std::tuple<int64_t, int64_t, double, double> cases[] = {
      {0, 10, 0, 1 - std::pow(0.025, 0.1)},
      {10, 10, std::pow(0.025, 0.1), 1},
      {1, 10, 0.0025285785444617843, 0.44501611702819543},
      {5, 100, 0.016431879182052158, 0.11283491110546276},
      {7, 20, 0.15390920478454115, 0.5921885345328282},
      {3, 4511, 0.00013716844844435447, 0.0019422900008122912},
      {0, 1'000'000, 0, 3.688872650231545e-06}};
  for (const auto& [hits, trials, low, high] : cases) {
    const Interval interval = BinomialInterval(hits, trials);
    EXPECT_NEAR(interval.Low, low, 1e-10 * low) << hits << " of " << trials;
    EXPECT_NEAR(interval.High, high, 1e-9 * high) << hits << " of " << trials;
  }
  const Interval half = BinomialInterval(500'000, 1'000'000);
  EXPECT_NEAR(half.Low + half.High, 1, 1e-9);
}

}  // namespace
}  // namespace pallomir
