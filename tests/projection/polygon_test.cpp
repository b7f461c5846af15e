#include "pallomir/projection/polygon.h"

#include <gtest/gtest.h>

#include <functional>

#include "pallomir/clusters/undo.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

struct Drawing : ::testing::Test {
  Session session = SessionWith({{5, 5}, {50, 50}});
  std::optional<OpenPolygon> open;
  Drawing() { session.CurrentCluster = 3; }

  void Draw(const std::vector<Vertex>& corners) {
    for (size_t k = 0; k + 1 < corners.size(); ++k) EXPECT_EQ(AddVertex(session, open, corners[k]).Refused, "");
    EXPECT_TRUE(ClosePolygon(session, open, corners.back()).Closed);
    EXPECT_FALSE(open);
  }
  const Cluster& Present() const { return session.Clusters[session.CurrentCluster]; }

  const std::vector<Vertex> low = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  const std::vector<Vertex> high = {{40, 40}, {60, 40}, {50, 60}};
};

TEST_F(Drawing, AFirstPolygonDefinesItsClusterAndClassifiesIt) {
  AddVertex(session, open, {0, 0});
  ASSERT_TRUE(open);
  EXPECT_EQ(BoundaryOf(session, *open), PolygonOf({{0, 0}}));
  EXPECT_TRUE(session.ClusterDefined[3]);
  EXPECT_EQ(session.DefinitionCounter, 1);
  EXPECT_EQ(session.Undo.Clusters[3], Cluster{});
  EXPECT_EQ(session.Undo.DefinitionCounter, 0);
  Draw({{10, 0}, {10, 10}, {0, 10}});
  EXPECT_EQ(Present().Boundaries[0], PolygonOf(low));
  EXPECT_EQ(ListOf(session, 0), std::vector{3});
  EXPECT_EQ(ListOf(session, 1), std::vector<int>{});
}

TEST_F(Drawing, APolygonReplacesTheOneInItsProjectionAndNoOther) {
  Draw(low);
  std::swap(session.XParameter, session.YParameter);
  Draw(low);
  EXPECT_EQ(Present().BoundaryCount, 2) << "swapped axes are another projection";
  EXPECT_EQ(Present().Boundaries[1], PolygonOf(low, 1, 0));
  std::swap(session.XParameter, session.YParameter);
  Draw(high);
  EXPECT_EQ(Present().BoundaryCount, 2);
  EXPECT_EQ(Present().Boundaries[0], PolygonOf(high));
  EXPECT_EQ(Present().Boundaries[1], PolygonOf(low, 1, 0));
  EXPECT_EQ(session.Undo.Clusters[3].Boundaries[0], PolygonOf(low)) << "the state before the last polygon";
  EXPECT_EQ(session.DefinitionCounter, 1);
  session.CurrentCluster = 4;
  Draw(high);
  EXPECT_EQ(session.DefinitionCounter, 2);
}

TEST_F(Drawing, CancellingRestoresTheBoundaryWhateverSnapshotsWereTakenMeanwhile) {
  for (const bool replaced : {true, false}) {
    for (const bool snapshotMeanwhile : {true, false}) {
      session = SessionWith({{5, 5}, {50, 50}});
      session.CurrentCluster = 3;
      if (replaced) Draw(low);
      const BoundaryTable before = session.Clusters;
      const BoundaryTable undo = session.Undo.Clusters;
      AddVertex(session, open, {40, 40});
      AddVertex(session, open, {41, 40});
      if (snapshotMeanwhile) SaveUndoSnapshot(session);
      TakeBackPolygon(session, open);
      EXPECT_FALSE(open);
      EXPECT_EQ(session.Clusters, before);
      EXPECT_EQ(session.DefinitionCounter, replaced ? 1 : 0);
      EXPECT_EQ(session.ClusterDefined[3], replaced);
      EXPECT_EQ(ListOf(session, 0), replaced ? std::vector{3} : std::vector<int>{});
      EXPECT_EQ(ListOf(session, 1), std::vector<int>{});
      EXPECT_EQ(session.Undo.Clusters, snapshotMeanwhile ? before : undo);
      if (!snapshotMeanwhile) continue;
      EXPECT_EQ(session.Undo.DefinitionCounter, session.DefinitionCounter);
    }
  }
}

TEST_F(Drawing, AClickInTheSamePlaceIsACornerToo) {
  for (int k = 0; k < 3; ++k) AddVertex(session, open, {1, 1});
  ClosePolygon(session, open, {1, 1});
  EXPECT_EQ(Present().Boundaries[0], PolygonOf({{1, 1}, {1, 1}, {1, 1}, {1, 1}}));
}

TEST_F(Drawing, NeedsAClusterAndAnOpenPolygon) {
  EXPECT_FALSE(ClosePolygon(session, open, {1, 1}).Closed);
  session.CurrentCluster = 0;
  EXPECT_EQ(AddVertex(session, open, {1, 1}).Refused, "Choose a cluster first: the clicks draw its boundary.");
  EXPECT_EQ(session.Clusters, BoundaryTable{});
}

TEST_F(Drawing, A52ndCornerIsRefused) {
  for (int k = 0; k < 51; ++k) EXPECT_EQ(AddVertex(session, open, {static_cast<float>(k), 0}).Refused, "");
  const Cluster full = Present();
  EXPECT_EQ(AddVertex(session, open, {99, 99}).Refused,
            "This boundary has 51 corners, the most it can have: right-click to close it.");
  EXPECT_EQ(ClosePolygon(session, open, {99, 99}).Refused,
            "A boundary can have at most 51 corners: it was closed at the last one.");
  EXPECT_FALSE(open);
  EXPECT_EQ(Present(), full);
}

TEST_F(Drawing, A22ndBoundaryIsRefusedButAReplacementIsNot) {
  for (int16_t y = 1; y <= 21; ++y) {
    session.YParameter = y;
    Draw(low);
  }
  session.YParameter = 22;
  const Cluster full = Present();
  session.Undo = {};
  EXPECT_EQ(AddVertex(session, open, {1, 1}).Refused,
            "Cluster 3 already has 21 boundaries, the most that a cluster can have.");
  EXPECT_FALSE(open);
  EXPECT_EQ(Present(), full);
  EXPECT_EQ(session.Undo.Clusters, BoundaryTable{}) << "nothing that could be undone has happened";
  session.YParameter = 21;
  Draw(high);
  EXPECT_EQ(Present().Boundaries[20], PolygonOf(high, 0, 21));
}

TEST_F(Drawing, APolygonIsAbandonedWhenItsClusterOrProjectionChanges) {
  const std::function<void()> leavings[] = {[&] { session.CurrentCluster = 5; }, [&] { session.YParameter = 2; },
                                            [&] { session.Clusters[3] = {}; }};
  for (const auto& leave : leavings) {
    session = SessionWith({{5, 5}});
    session.CurrentCluster = 3;
    AddVertex(session, open, {0, 0});
    AddVertex(session, open, {1, 0});
    leave();
    const Cluster left = session.Clusters[3];
    AbandonIfElsewhere(session, open);
    EXPECT_FALSE(open);
    EXPECT_EQ(session.Clusters[3], left) << "what was drawn stays";
    AddVertex(session, open, {7, 7});
    ASSERT_TRUE(open);
    EXPECT_EQ(BoundaryOf(session, *open).VertexCount, 1) << "the next click begins another";
    open.reset();
  }
}

}  // namespace
}  // namespace pallomir
