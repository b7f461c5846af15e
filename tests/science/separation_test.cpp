#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "pallomir/science/waveforms/cluster_separation.h"
#include "pallomir/science/waveforms/nearest_spikes.h"

namespace pallomir {
namespace {

struct Clouds {
  FeatureColumns Columns = FeatureColumns(4);
  std::vector<uint8_t> Member;
};

/// Two round clouds, `apart` standard deviations from each other along the first feature.
Clouds TwoClouds(size_t members, size_t others, double apart) {
  std::mt19937_64 random(1);
  std::normal_distribution<double> value;
  Clouds clouds;
  for (size_t i = 0; i < members + others; ++i) {
    clouds.Member.push_back(i % ((members + others) / members) == 0);
    for (size_t f = 0; f < 4; ++f)
      clouds.Columns[f].push_back((value(random) + (f == 0 && clouds.Member.back() ? apart : 0)) *
                                  (1 + 100.0 * static_cast<double>(f)));
  }
  return clouds;
}

Separation Of(const Clouds& clouds) {
  return SeparationOf(clouds.Columns, clouds.Member, MomentsOf(clouds.Columns),
                      MomentsOf(clouds.Columns, clouds.Member));
}

TEST(Separation, GrowsWithTheDistance) {
  const Separation far = Of(TwoClouds(2000, 8000, 8));
  EXPECT_NEAR(far.Discriminability.Value, 8, 0.2);
  EXPECT_GT(far.NeighbourHits.Value, 0.99);
  EXPECT_LT(far.NeighbourMisses.Value, 0.01);
  const Separation same = Of(TwoClouds(2000, 8000, 0));
  EXPECT_LT(same.Discriminability.Value, 0.2);
  EXPECT_NEAR(same.NeighbourHits.Value, 2000 / 7000.0, 0.05) << "the others are thinned to 5000";
  EXPECT_NEAR(same.NeighbourMisses.Value, 2000 / 7000.0, 0.05);
}

TEST(Separation, SaysWhyItIsNotKnown) {
  Clouds few = TwoClouds(5, 100, 1);
  EXPECT_STREQ(Of(few).NeighbourHits.Why, "too few spikes on a side");
  few.Columns[3] = few.Columns[2];
  EXPECT_STREQ(Of(few).Discriminability.Why, "the features depend on each other");
}

TEST(ClusterDistance, IsThatOfMahalanobis) {
  const Clouds clouds = TwoClouds(5000, 5000, 3);
  std::vector<uint8_t> others(clouds.Member.size());
  std::transform(clouds.Member.begin(), clouds.Member.end(), others.begin(), [](uint8_t is) { return is == 0; });
  EXPECT_NEAR(ClusterDistance(MomentsOf(clouds.Columns, clouds.Member), MomentsOf(clouds.Columns, others)).Value, 3,
              0.1);
}

TEST(NearestSpikes, AreThoseOfAFullSearch) {
  std::mt19937_64 random(3);
  std::uniform_int_distribution<int> value(0, 6);  // many equal distances
  FeatureColumns points(3, std::vector<double>(900));
  for (auto& column : points)
    for (double& v : column) v = value(random);
  const NearestSpikes nearest(points);
  for (size_t i = 0; i < 900; i += 7) {
    std::vector<std::pair<double, size_t>> all;
    for (size_t j = 0; j < 900; ++j) {
      double squared = 0;
      for (const auto& column : points) squared += (column[i] - column[j]) * (column[i] - column[j]);
      if (j != i) all.emplace_back(squared, j);
    }
    std::sort(all.begin(), all.end());
    const std::vector<size_t> found = nearest.Of(i);
    ASSERT_EQ(found.size(), NearestSpikes::kNearest);
    for (size_t k = 0; k < found.size(); ++k) EXPECT_EQ(found[k], all[k].second) << i;
  }
}

TEST(Isolation, OfAClusterThatOutnumbersTheNoiseHasAnLRatioOnly) {
  const Clouds clouds = TwoClouds(6000, 6000, 5);
  std::vector<uint8_t> most(clouds.Member.size(), 1);
  for (size_t i = 0; i < most.size(); i += 4) most[i] = 0;
  const Isolation apart = IsolationOf(clouds.Columns, most);
  EXPECT_TRUE(apart.LRatio.has_value());
  EXPECT_FALSE(apart.IsolationDistance.has_value());
}

}  // namespace
}  // namespace pallomir
