#include "pallomir/clusters/classify.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "pallomir/clusters/keep_inside.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

using List = std::vector<int>;
const Boundary kAll = RectangleOf(-1e6F, -1e6F, 1e6F, 1e6F);
const Boundary kNothing = RectangleOf(-2e6F, -2e6F, -1e6F, -1e6F);

/// Gives cluster c exactly these boundaries, and classifies it.
void Cut(Session& session, int c, const std::vector<Boundary>& boundaries) {
  session.Clusters[c] = {};
  for (const Boundary& boundary : boundaries) AddBoundary(session, c, boundary);
  ClassifyCluster(session, c);
}

TEST(ClassifyCluster, ListsClustersInTheOrderOfJoining) {
  Session session = SessionWith({{1, 1}});
  AddBoundary(session, 5, kAll);
  AddBoundary(session, 3, kAll);
  ClassifyAllClusters(session);
  EXPECT_EQ(ListOf(session, 0), (List{3, 5}));
  Cut(session, 3, {kAll});
  EXPECT_EQ(ListOf(session, 0), (List{3, 5})) << "a point that stays keeps its position in the list";
  Cut(session, 3, {kNothing});
  EXPECT_EQ(ListOf(session, 0), (List{5}));
  Cut(session, 3, {kAll});
  EXPECT_EQ(ListOf(session, 0), (List{5, 3})) << "a point that rejoins is appended";
  Cut(session, 9, {kAll});
  Cut(session, 3, {kNothing});
  EXPECT_EQ(ListOf(session, 0), (List{5, 9})) << "the gap closes";
}

TEST(ClassifyCluster, TakesThePointsInsideEveryBoundaryEachInItsOwnProjection) {
  Session session = SessionWith({{1, 1}, {5, 5}, {9, 1}, {5, 5}});
  session.Points.Column(133)[1] = 50;
  Cut(session, 7, {RectangleOf(0, 0, 6, 6), RectangleOf(40, 4, 60, 10, 133, 1)});
  for (const size_t i : {0, 2, 3}) EXPECT_EQ(ListOf(session, i), List{});
  EXPECT_EQ(ListOf(session, 1), List{7});
  Cut(session, 7, {RectangleOf(0, 0, 2, 2)});
  EXPECT_EQ(ListOf(session, 0), List{7});
  EXPECT_EQ(ListOf(session, 1), List{}) << "leaves while no point is in two clusters";
}

TEST(PointsNotFinite, AreTheMembersThatCannotBeDrawnWhereTheClusterWasCut) {
  const float nan = std::nanf(""), infinite = INFINITY;
  Session session = SessionWith({{1, 1}, {nan, 1}, {1, infinite}, {nan, nan}, {50, 50}, {1, 1}});
  session.Points.Column(7)[0] = nan;  // on no projection of the cluster
  Cut(session, 2, {kAll});
  Cut(session, 4, {RectangleOf(0, 0, 2, 2), RectangleOf(0, 0, 1e6F, 1e6F, 1, 7)});
  EXPECT_EQ(PointsInCluster(session, 2), 6);
  EXPECT_EQ(PointsNotFinite(session, 2), 3);
  EXPECT_EQ(PointsInCluster(session, 4), 5);
  EXPECT_EQ(PointsNotFinite(session, 4), 4);
  for (const int none : {0, 1}) EXPECT_EQ(PointsNotFinite(session, none), 0);
}

TEST(ClearCluster, RemovesBoundariesAndMembersIfThereAreAny) {
  Session session = SessionWith({{1, 1}});
  Cut(session, 6, {kAll, kAll});
  Cut(session, 8, {kAll});
  ClearCluster(session, 6);
  EXPECT_EQ(session.Clusters[6], Cluster{});
  EXPECT_EQ(ListOf(session, 0), List{8});
  session.Clusters[8].BoundaryCount = 0;
  ClearCluster(session, 8);
  EXPECT_EQ(ListOf(session, 0), List{8}) << "without boundaries the lists are not touched";
}

TEST(ClassifyCluster, AgreesWithPlainListsOverManyChanges) {
  // More points than fit into two blocks; whole numbers, so that many lie on boundaries.
  std::mt19937 random(3);
  const auto draw = [&](int from, int to) {
    return static_cast<float>(from + static_cast<int>(random() % (to - from)));
  };
  std::vector<Vertex> points(5000);
  for (Vertex& point : points) point = {draw(0, 40), draw(0, 40)};
  Session session = SessionWith(points);
  std::vector<List> lists(points.size());
  for (int change = 0; change < 150; ++change) {
    // Few clusters at first, so that the first change to need a second slot comes after several that do not.
    const int c = 1 + static_cast<int>(random() % (change < 10 ? 2 : 30));
    const size_t kind = random() % 8;
    std::vector<Boundary> boundaries;
    for (size_t wanted = kind < 2 ? 0 : 1 + random() % 4; wanted > 0; --wanted) {
      const float left = draw(0, 25), low = draw(0, 25);
      boundaries.push_back(RectangleOf(left, low, left + draw(1, 40), low + draw(1, 40)));
    }
    if (kind == 0)
      ClearCluster(session, c);
    else
      Cut(session, c, boundaries);
    for (size_t i = 0; i < points.size(); ++i) {
      const bool inside =
          !boundaries.empty() && std::all_of(boundaries.begin(), boundaries.end(), [&](const Boundary& boundary) {
            return PointInBoundary(points[i].X, points[i].Y, boundary) == 1;
          });
      List& list = lists[i];
      const auto found = std::find(list.begin(), list.end(), c);
      if (inside && found == list.end()) list.push_back(c);
      if (!inside && found != list.end()) list.erase(found);
    }
    if (change % 10 != 9) continue;
    int wrong = 0, members = 0, none = 0;
    for (size_t i = 0; i < points.size(); ++i) {
      wrong += ListOf(session, i) != lists[i] || session.Points.Memberships(i) != static_cast<int>(lists[i].size());
      members += std::find(lists[i].begin(), lists[i].end(), c) != lists[i].end();
      none += lists[i].empty();
    }
    ASSERT_EQ(wrong, 0) << "after change " << change;
    EXPECT_EQ(PointsInCluster(session, c), members);
    EXPECT_EQ(PointsInCluster(session, 0), none);
  }
}

}  // namespace
}  // namespace pallomir
