#include "pallomir/results/cut_points.h"

#include <gtest/gtest.h>

#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {
namespace {

/// Rows with these stamps, numbered from 0.
PointTable Table(const std::vector<uint64_t>& stamps) {
  PointTable points(stamps.size());
  for (size_t i = 0; i < stamps.size(); ++i) {
    points.Stamps()[i] = stamps[i];
    points.Column(kRecordSlot)[i] = static_cast<float>(i);
  }
  return points;
}

TEST(CutPoints, TheLoadedTimeIsThatOfTheChosenRecords) {
  const PointTable points = Table({100, 200, 300, 400, 500, 600, 700});
  const auto parts = [&](std::optional<RecordRanges> ranges) {
    std::vector<std::pair<int64_t, int64_t>> ends;
    const LoadedTime time = LoadedTimeOf(points, ranges);
    for (const TimeRange& part : time.Parts()) ends.emplace_back(part.First, part.Last);
    return ends;
  };
  using Ends = std::vector<std::pair<int64_t, int64_t>>;
  EXPECT_EQ(parts({}), (Ends{{100, 700}}));
  EXPECT_EQ(parts(RecordRanges{{5, 6}, {1, 2}}), (Ends{{200, 300}, {600, 700}})) << "in time order";
  EXPECT_EQ(parts(RecordRanges{{1, 3}, {2, 4}}), (Ends{{200, 500}})) << "a spike counts once";
  EXPECT_EQ(parts(RecordRanges{{90, 99}}), Ends{});
  const TimedPoints chosen(points, LoadedTimeOf(points, RecordRanges{{5, 6}, {1, 2}}));
  EXPECT_EQ(chosen.Row, (std::vector<int64_t>{1, 2, 5, 6}));
}

TEST(CutPoints, RecordsAndPointsWithOneStampBelongToEachOtherInOrder) {
  const PointTable points = Table({300, 100, 200, 200});
  const TimedPoints timed(points, LoadedSpan(points));
  EXPECT_EQ(timed.Time, (std::vector<int64_t>{100, 200, 200, 300}));
  EXPECT_EQ(timed.Row, (std::vector<int64_t>{1, 2, 3, 0}));
  EXPECT_EQ(timed.RowsOfRecords(std::vector<int64_t>{200, 300, 150, 200, 200}),
            (std::vector<int64_t>{2, 0, -1, 3, -1}));
}

TEST(CutPoints, AVersionTellsTablesAndListsApart) {
  PointTable points(5);
  const auto first = points.CurrentVersion();
  EXPECT_NE(first, PointTable(5).CurrentVersion());
  points.AddSlot();
  const auto second = points.CurrentVersion();
  EXPECT_NE(first, second);
  points.Slot(0)[1] = 7;
  EXPECT_NE(second, points.CurrentVersion());
  EXPECT_EQ(ClusterSetsOf(points), (std::vector<ClusterSet>{0, 1U << 7, 0, 0, 0}));
  const auto third = points.CurrentVersion();
  const PointTable moved = std::move(points);
  EXPECT_EQ(third, moved.CurrentVersion());
}

}  // namespace
}  // namespace pallomir
