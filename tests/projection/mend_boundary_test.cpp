#include "pallomir/projection/mend_boundary.h"

#include <gtest/gtest.h>

#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/undo.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

/// Cluster 3 has a square from 20 to 60 on view, on a surface with 10 pixels per unit, and one on other parameters.
struct Mending : ::testing::Test {
  Session session = SessionWith({{30, 30}, {58, 58}, {70, 40}});
  View view;
  Mending() {
    session.CurrentCluster = 3;
    AddBoundary(session, 3, RectangleOf(0, 0, 90, 90, 1, 0));
    AddBoundary(session, 3, RectangleOf(20, 20, 60, 60));
    ClassifyAllClusters(session);
    view = ViewOf(session, 1001, 1001);
  }
  const Boundary& Square() const { return session.Clusters[3].Boundaries[1]; }
};

TEST_F(Mending, ACornerIsPreferredToTheEdgesThatMeetThere) {
  const auto corner = GripAt(session, view, {60.4F, 59.6F}, 7);
  ASSERT_TRUE(corner && corner->Held == Grip::Part::Corner);
  EXPECT_EQ(corner->Boundary, 1);
  EXPECT_EQ(Square().Vertices[corner->Corner], (Vertex{60, 60}));
  const auto edge = GripAt(session, view, {40, 60.6F}, 7);
  ASSERT_TRUE(edge && edge->Held == Grip::Part::Edge);
  for (const Vertex& end : {Square().Vertices[edge->Corner], Square().Vertices[(edge->Corner + 1) % 4]})
    EXPECT_EQ(end.Y, 60);
  EXPECT_FALSE(GripAt(session, view, {40, 60.8F}, 7)) << "eight pixels away";
  EXPECT_FALSE(GripAt(session, view, {0, 0}, 7)) << "a corner on other parameters";
  EXPECT_FALSE(GripAt(session, view, {80, 60}, 7)) << "on an edge's line, beyond its end";
}

TEST_F(Mending, TheWholeIsHeldInsideAndOnItsEdges) {
  for (const Vertex& at : {Vertex{40, 40}, Vertex{60.5F, 40}, Vertex{20, 20}}) {
    const auto whole = WholeAt(session, view, at, 7);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->Boundary, 1);
  }
  EXPECT_FALSE(WholeAt(session, view, {61, 40}, 7));
  session.Clusters[3].Boundaries[1] = PolygonOf({{20, 20}, {60, 20}, {60, 60}, {40, 30}});
  EXPECT_FALSE(WholeAt(session, view, {35, 50}, 7)) << "in the notch";
  EXPECT_TRUE(WholeAt(session, view, {57, 50}, 7));
}

TEST_F(Mending, ADragMovesACornerMakesOneInAnEdgeOrMovesAll) {
  const Boundary square = PolygonOf({{20, 20}, {60, 20}, {60, 60}, {20, 60}});
  const auto dragged = [&](Grip::Part part, int corner) {
    return Dragged(square, {part, 0, corner}, {59, 21}, {69, 16});
  };
  EXPECT_EQ(dragged(Grip::Part::Corner, 1), PolygonOf({{20, 20}, {70, 15}, {60, 60}, {20, 60}}));
  EXPECT_EQ(dragged(Grip::Part::Edge, 1), PolygonOf({{20, 20}, {60, 20}, {69, 16}, {60, 60}, {20, 60}}));
  EXPECT_EQ(dragged(Grip::Part::Edge, 3), PolygonOf({{20, 20}, {60, 20}, {60, 60}, {20, 60}, {69, 16}}));
  EXPECT_EQ(dragged(Grip::Part::Whole, 0), PolygonOf({{30, 15}, {70, 15}, {70, 55}, {30, 55}}));
  EXPECT_EQ(WithoutCorner(square, 0), PolygonOf({{60, 20}, {60, 60}, {20, 60}}));
  EXPECT_EQ(WithoutCorner(square, 3), PolygonOf({{20, 20}, {60, 20}, {60, 60}}));
}

TEST_F(Mending, ABoundaryKeepsBetweenThreeAndFiftyOneCorners) {
  Boundary boundary = PolygonOf({{0, 0}, {9, 0}, {9, 9}});
  EXPECT_EQ(RefusedDeletion(boundary), "A boundary keeps at least 3 corners.");
  EXPECT_EQ(RefusedCorner(boundary), "");
  while (RefusedCorner(boundary).empty()) boundary = Dragged(boundary, {Grip::Part::Edge, 0, 2}, {0, 0}, {5, 5});
  EXPECT_EQ(boundary.VertexCount, kVerticesPerBoundary);
  EXPECT_EQ(RefusedDeletion(boundary), "");
}

TEST_F(Mending, UndoTakesBackWhatWasMended) {
  const BoundaryTable cut = session.Clusters;
  EXPECT_EQ(PointsInCluster(session, 3), 2);
  MendBoundary(session, 3, 1, RectangleOf(20, 20, 80, 50));
  EXPECT_EQ(ListOf(session, 1), std::vector<int>{});
  EXPECT_EQ(ListOf(session, 2), std::vector{3});
  UndoLastChange(session);
  EXPECT_EQ(session.Clusters, cut);
  EXPECT_EQ(ListOf(session, 1), std::vector{3});
}

}  // namespace
}  // namespace pallomir
