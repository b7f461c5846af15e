// Copying, deleting and undoing.

#include "pallomir/clusters/editing.h"

#include <gtest/gtest.h>

#include "pallomir/clusters/change_cut.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/clusters/overlap.h"
#include "pallomir/clusters/undo.h"
#include "pallomir/files/error.h"
#include "pallomir/session/work_pace.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

/// Points (10, 10), (20, 20) .. (90, 90), and clusters 4 (the first three points) and 7 (points 2 to 5), 4 chosen.
Session CutSession() {
  std::vector<Vertex> points;
  for (float k = 10; k <= 90; k += 10) points.push_back({k, k});
  Session session = SessionWith(points);
  AddBoundary(session, 4, RectangleOf(5, 5, 35, 35));
  AddBoundary(session, 7, RectangleOf(15, 15, 55, 55));
  for (const int c : {4, 7}) session.ClusterDefined[c] = true;
  session.DefinitionCounter = 2;
  session.CurrentCluster = 4;
  ClassifyAllClusters(session);
  return session;
}

TEST(CopyCluster, TakesWholeNumbersFrom1To30) {
  for (const double number : {0.0, 31.0, -2.0, 0.4, 30.2}) {
    Session session = CutSession();
    EXPECT_EQ(CopyCluster(session, number).Target, 0) << number;
    EXPECT_EQ(session.DefinitionCounter, 2);
    EXPECT_EQ(session.Undo.DefinitionCounter, 0) << "no snapshot is taken for " << number;
  }
  Session unnumbered = CutSession();
  EXPECT_EQ(CopyCluster(unnumbered, {}).Target, 0);
  const std::pair<double, int> rounded[] = {{30, 30}, {0.6, 1}, {2.5, 2}, {3.5, 4}};
  for (const auto& [number, target] : rounded) {
    Session session = CutSession();
    const bool ontoItself = target == 4;
    const CopyOutcome outcome = CopyCluster(session, number);
    EXPECT_EQ(outcome.Target, target);
    EXPECT_EQ(outcome.Copied, !ontoItself);
    EXPECT_EQ(outcome.Deleted, ontoItself);
    EXPECT_EQ(PointsInCluster(session, target), ontoItself ? 0 : 3);
    EXPECT_EQ(session.ClusterDefined[target], !ontoItself);
  }
}

TEST(CopyCluster, ReplacesTheTargetAndIsUndone) {
  Session session = CutSession();
  EXPECT_TRUE(CopyCluster(session, 7).Copied);
  EXPECT_EQ(session.Clusters[7], session.Clusters[4]);
  EXPECT_EQ(session.DefinitionCounter, 3);
  EXPECT_EQ(ListOf(session, 1), (std::vector<int>{4, 7}));
  EXPECT_EQ(ListOf(session, 4), std::vector<int>{});
  UndoLastChange(session);
  EXPECT_EQ(ListOf(session, 4), std::vector<int>{7});
  EXPECT_EQ(session.DefinitionCounter, 2);
  // Copying an empty cluster empties its target.
  session.CurrentCluster = 9;
  const CopyOutcome emptied = CopyCluster(session, 7);
  EXPECT_TRUE(emptied.Deleted && !emptied.Copied);
  EXPECT_EQ(session.Clusters[7].BoundaryCount, 0);
  EXPECT_FALSE(session.ClusterDefined[7]);
}

TEST(DeleteClusterBounds, TakesTheFirstBoundaryOfThisProjectionOnly) {
  Session session = CutSession();
  AddBoundary(session, 4, RectangleOf(0, 0, 100, 100, 1, 0));  // axes swapped
  AddBoundary(session, 4, RectangleOf(5, 5, 25, 25));
  ClassifyAllClusters(session);
  EXPECT_EQ(PointsInCluster(session, 4), 2);
  DeleteClusterBounds(session);
  EXPECT_EQ(session.Clusters[4].BoundaryCount, 2);
  EXPECT_EQ(session.Clusters[4].Boundaries[0].XParameter, 1);
  DeleteClusterBounds(session);
  DeleteClusterBounds(session);  // nothing is left in this projection
  EXPECT_EQ(session.Clusters[4].BoundaryCount, 1);
  EXPECT_EQ(PointsInCluster(session, 4), 9);
  EXPECT_TRUE(session.ClusterDefined[4]);
  std::swap(session.XParameter, session.YParameter);
  DeleteClusterBounds(session);
  EXPECT_FALSE(session.ClusterDefined[4]);
  EXPECT_EQ(session.DefinitionCounter, 1);
  EXPECT_EQ(PointsInCluster(session, 4), 0);
}

TEST(Undo, SwapsTheCurrentAndThePreviousState) {
  Session session = CutSession();
  const BoundaryTable cut = session.Clusters;
  DeleteEveryCluster(session);
  EXPECT_EQ(PointsInCluster(session, 0), 9);
  EXPECT_EQ(session.DefinitionCounter, 2) << "deleting does not lower the counter";
  UndoLastChange(session);
  EXPECT_EQ(session.Clusters, cut);
  EXPECT_EQ(ListOf(session, 1), (std::vector<int>{4, 7}));
  EXPECT_TRUE(session.ClusterDefined[4] && session.ClusterDefined[7]);
  UndoLastChange(session);
  EXPECT_EQ(session.Clusters, BoundaryTable{});
  EXPECT_FALSE(session.ClusterDefined[4]);
  UndoLastChange(session);
  EXPECT_EQ(session.Clusters, cut);
  // Before any change the snapshot is empty.
  Session fresh = CutSession();
  UndoLastChange(fresh);
  EXPECT_EQ(PointsInCluster(fresh, 0), 9);
  UndoLastChange(fresh);
  EXPECT_EQ(fresh.Clusters, cut);
}

TEST(ChangeCut, RestoresEverythingWhenItIsStopped) {
  const std::function<void(Session&, const Progress&)> changes[] = {
      [](Session& session, const Progress& pace) { UndoLastChange(session, pace); },
      [](Session& session, const Progress& pace) { CopyCluster(session, 7, pace); },
      [](Session& session, const Progress& pace) { DeleteClusterBounds(session, pace); },
      [](Session& session, const Progress& pace) { DeleteCurrentCluster(session, pace); },
      [](Session& session, const Progress& pace) {
        DeleteAllClusters(session);
        AddBoundary(session, 9, RectangleOf(15, 15, 55, 55));
        AddBoundary(session, 12, RectangleOf(5, 5, 35, 35));
        ClassifyAllClusters(session, pace);
      }};
  for (const auto& change : changes)
    for (const int stop : {1, 2}) {
      Session session = CutSession();
      AddBoundary(session, 4, RectangleOf(5, 5, 25, 25, 1, 0));
      SaveUndoSnapshot(session);
      AddBoundary(session, 4, RectangleOf(5, 5, 25, 25));
      ClassifyAllClusters(session);
      const UndoSnapshot present{session.Clusters, session.DefinitionCounter}, undo = session.Undo;
      RecordingWorld world;
      world.Slow = true;
      world.InterruptAt = stop;
      WorkPace pace(world);
      try {
        ChangeCut(session, [&] { change(session, pace); });
      } catch (const Interrupted&) {
        EXPECT_EQ(session.Clusters, present.Clusters);
        EXPECT_EQ(session.DefinitionCounter, present.DefinitionCounter);
        EXPECT_EQ(session.Undo.Clusters, undo.Clusters);
        EXPECT_TRUE(session.ClusterDefined[4] && session.ClusterDefined[7] && !session.ClusterDefined[9]);
        EXPECT_EQ(ListOf(session, 1), (std::vector<int>{4, 7}));
        EXPECT_EQ(PointsInCluster(session, 4), 2);
        continue;
      }
      EXPECT_EQ(stop, 2) << "only one cluster is classified between two checks";
    }
}

TEST(Overlap, ContainsThePointsInTwoClustersOrMore) {
  Session session = CutSession();
  const OverlapPoints overlap = PointsInSeveralClusters(session);
  EXPECT_EQ(overlap.X, (std::vector<float>{20, 30}));
  EXPECT_EQ(overlap.Y, (std::vector<float>{20, 30}));
  EXPECT_EQ(ClusterInfo(session),
            (std::vector<std::string>{"Cluster 4: MPeak-1 against MPeak-2, 4 vertices", "Cluster 4: 3 points"}));
  DeleteCurrentCluster(session);
  EXPECT_EQ(Refusal([&] { PointsInSeveralClusters(session); }), "There are no overlapping clusters");
}

}  // namespace
}  // namespace pallomir
