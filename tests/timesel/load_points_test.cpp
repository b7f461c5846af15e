#include "pallomir/timesel/load_points.h"

#include <gtest/gtest.h>

#include "pallomir/clusters/classify.h"
#include "pallomir/files/error.h"
#include "support/parameter_files.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"

namespace pallomir {
namespace {

TEST(LoadPoints, ClassifiesClustersInIncreasingOrder) {
  const TemporaryFolder folder;
  Session session = SessionOn(folder, BytesOf(NumberedRows(40)));
  RecordingWorld world;
  // Numbered rows lie on the line (1000 r, 1000 r + 1).
  AddBoundary(session, 30, RectangleOf(-1, -1, 1e6F, 1e6F));
  AddBoundary(session, 5, RectangleOf(9'500, 0, 20'500, 1e6F));
  AddBoundary(session, 3, RectangleOf(19'500, 0, 1e6F, 1e6F));
  LoadPoints(session, world, 10, 29);
  EXPECT_EQ(ListOf(session, 0), (std::vector{5, 30}));
  EXPECT_EQ(ListOf(session, 10), (std::vector{3, 5, 30}));
  EXPECT_EQ(ListOf(session, 19), (std::vector{3, 30}));
  EXPECT_EQ(ListOf(session, 20), (std::vector<int>{}));  // the record after the last point
}

TEST(LoadPoints, LeavesNoPointsWithoutClassification) {
  const TemporaryFolder folder;
  Session session = SessionOn(folder, BytesOf(NumberedRows(40)));
  RecordingWorld world;
  for (const int c : {3, 30}) AddBoundary(session, c, RectangleOf(-1, -1, 1e6F, 1e6F));
  world.Slow = true;
  world.InterruptAt = 3;  // two pumps while reading
  EXPECT_THROW(LoadPoints(session, world, 10, 29), Interrupted);
  EXPECT_FALSE(PointsLoaded(session));
  EXPECT_EQ(session.Clusters[30].BoundaryCount, 1);
  EXPECT_EQ(ListOf(session, 0), (std::vector{3, 30}));
}

TEST(LoadPoints, UnloadingARangeLeavesOneRow) {
  const TemporaryFolder folder;
  Session session = SessionOn(folder, BytesOf(NumberedRows(40)));
  RecordingWorld world;
  for (const int c : {3, 5}) AddBoundary(session, c, RectangleOf(-1, -1, 1e6F, 1e6F));
  GiveUpRange(session);
  EXPECT_EQ(session.Points.Rows(), 0U) << "nothing was loaded before";
  LoadPoints(session, world, 10, 29);
  const PointRecord first = session.Points.Record(0);
  GiveUpRange(session);
  EXPECT_FALSE(PointsLoaded(session));
  ASSERT_EQ(session.Points.Rows(), 1U);
  EXPECT_EQ(session.Points.Record(0).Parameters, first.Parameters);
  EXPECT_EQ(session.Points.Record(0).Stamp, first.Stamp);
  EXPECT_EQ(ListOf(session, 0), (std::vector{3, 5}));
  EXPECT_EQ(session.Points.Record(1).Parameters, PointRecord().Parameters) << "the record after the last point";
  ClearCluster(session, 3);
  EXPECT_EQ(ListOf(session, 0), std::vector{5});
}

TEST(LoadPoints, RefusesARangeThatIsReversedOrUndefined) {
  const TemporaryFolder folder;
  Session session = SessionOn(folder, BytesOf(NumberedRows(40)));
  RecordingWorld world;
  EXPECT_EQ(Refusal([&] { LoadPoints(session, world, 5, 4); }), "Start time must be <= to Stop time");
  EXPECT_EQ(Refusal([&] { LoadPoints(session, world, 30, 0); }), "Start time must be <= to Stop time");
  EXPECT_EQ(Refusal([&] { LoadPoints(session, world, 0, 0); }), "Must Define Event IDs Using Define Epochs Command");
  EXPECT_FALSE(PointsLoaded(session));
  EXPECT_TRUE(session.FirstLoad);
  EXPECT_EQ(Refusal([&] { LoadPoints(session, world, 0, 9); }), "");
}

}  // namespace
}  // namespace pallomir
