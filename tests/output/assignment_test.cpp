// Which cluster a point is assigned to: the draw is tested by its statistics, as it is never the same twice.

#include "pallomir/output/assignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace pallomir {
namespace {

constexpr int kPoints = 120'000;

/// Points that are all in the same clusters.
PointTable PointsIn(const std::vector<int16_t>& clusters) {
  PointTable points(kPoints);
  for (const int16_t c : clusters) {
    points.AddSlot();
    const auto slot = points.Slot(points.SlotsInUse() - 1);
    std::fill(slot.begin(), slot.end() - 1, c);
  }
  return points;
}

/// How far the counts of `kinds` kinds are from equal ones: chi-squared with kinds - 1 degrees of freedom.
double Distance(const std::map<int, int>& counts, size_t kinds) {
  double all = 0, squares = 0;
  for (const auto& [kind, count] : counts) {
    all += count;
    squares += static_cast<double>(count) * count;
  }
  return squares * static_cast<double>(kinds) / all - all;
}

TEST(Assignment, DrawsAreUniformAndIndependent) {
  std::vector<int16_t> all;
  for (int16_t c = 1; c <= kClusters; ++c) all.push_back(c);
  // Each limit is exceeded once in a hundred million runs by chance.
  const struct {
    std::vector<int16_t> Clusters;
    double Limit, PairLimit;
  } cases[] = {{{2, 5}, 32.8, 40.1}, {{7, 3, 30}, 36.8, 53.2}, {all, 93.6, 1157.6}};
  for (const auto& [clusters, limit, pairLimit] : cases) {
    const std::vector<uint8_t> drawn = AssignClusters(PointsIn(clusters)).Cluster;
    std::map<int, int> counts, pairs;
    for (int i = 0; i < kPoints; i += 2) {
      ++counts[drawn[i]];
      ++counts[drawn[i + 1]];
      ++pairs[kClusterSlots * drawn[i] + drawn[i + 1]];
    }
    for (const auto& [c, count] : counts)
      EXPECT_NE(std::find(clusters.begin(), clusters.end(), c), clusters.end()) << c;
    EXPECT_LT(Distance(counts, clusters.size()), limit);
    EXPECT_LT(Distance(pairs, clusters.size() * clusters.size()), pairLimit);
  }
}

TEST(Assignment, IsNotTheSameTwice) {
  const PointTable points = PointsIn({2, 5});
  EXPECT_NE(AssignClusters(points).Cluster, AssignClusters(points).Cluster);
}

TEST(Assignment, CountsEveryPairPastSixteenBits) {
  // The list is in the order in which the clusters were made.
  const Assignment assignment = AssignClusters(PointsIn({3, 1, 2}));
  for (int low = 0; low <= kClusters; ++low)
    for (int high = 0; high <= kClusters; ++high)
      EXPECT_EQ(assignment.Overlaps[high][low], low >= 1 && low < high && high <= 3 ? kPoints : 0);
  EXPECT_TRUE(assignment.AnyOverlap);
}

TEST(Assignment, IsNotRandomWithoutOverlap) {
  PointTable points(4);
  EXPECT_EQ(AssignClusters(points).Cluster, (std::vector<uint8_t>{0, 0, 0, 0}));
  points.AddSlot();
  points.AddSlot();
  points.Slot(0)[1] = 30;
  const Assignment assignment = AssignClusters(points);
  EXPECT_EQ(assignment.Cluster, (std::vector<uint8_t>{0, 30, 0, 0}));
  EXPECT_FALSE(assignment.AnyOverlap);
}

}  // namespace
}  // namespace pallomir
