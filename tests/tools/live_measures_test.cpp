#include "pallomir/live/live_measures.h"

#include <bit>

#include "pallomir/clusters/classify.h"
#include "pallomir/results/measure_clusters.h"
#include "pallomir/results/measure_columns.h"
#include "sample_with_cut.h"
#include "tools/cut/open_cut.h"

namespace pallomir {
namespace {

/// The sample's cut, opened, and measured live.
struct LiveSample : SampleWithCut {
  LiveSample() {
    OpenCut(session, *folder / "sample/TT1/TT1.Ntt.parms", *folder / "sample/TT1/cut.txt", {}, {}, {});
    Load("Pos.p");
  }

  MeasureSources Sources(const std::string& positions) const {
    return {.SpikeFile = *folder / "sample/TT1/TT1.Ntt",
            .PositionFile = *folder / ("sample/" + positions),
            .Time = LoadedSpan(session.Points),
            .Settings = {}};
  }

  void Load(const std::string& positions) {
    const MeasureSources sources = Sources(positions);
    live.SetRecording(std::make_shared<LiveRecording>(
        LiveRecording{sources.SpikeFile, sources.PositionFile, sources.Time, {}, {session.Points, sources.Time}}));
    live.SetCut(ClusterSetsOf(session.Points), session.ClusterDefined);
  }

  void Recut(int c, float low, float high) {
    CutSquare(session, c, low, high);
    ClassifyCluster(session, c);
    live.SetCut(ClusterSetsOf(session.Points), session.ClusterDefined);
  }

  LiveCut Finished() {
    live.Finish();
    return live.Now();
  }

  /// Every number of the live cut is that of the batch.
  void ExpectAsMeasured(const LiveCut& shown) {
    const MeasuredCut cut = MeasureClusters(session, Sources("Pos.p"));
    ASSERT_FALSE(cut.Clusters.empty());
    for (const MeasuredCluster& cluster : cut.Clusters) {
      const LiveCluster& own = shown.Clusters[cluster.Number];
      EXPECT_TRUE(own.Fresh.all()) << cluster.Number;
      EXPECT_EQ(own.Spikes, cluster.Train.Spikes);
      for (const MeasureColumn& column : MeasureColumns())
        EXPECT_EQ(std::bit_cast<uint64_t>(column.Of(own.Measures).Value),
                  std::bit_cast<uint64_t>(column.Of(cluster).Value))
            << column.Name << " of cluster " << cluster.Number;
    }
    for (const MeasuredPair& pair : cut.Pairs) {
      const auto& own = shown.Pairs.at({pair.A, pair.B});
      EXPECT_TRUE(own.Fresh);
      EXPECT_EQ(own.Lags->Pairs, pair.Lags.Pairs);
      EXPECT_EQ(own.Lags->High, pair.Lags.High);
    }
  }

  static LiveWants Everything() {
    return {.Cell = 4,
            .CellParts = MeasureParts().set(),
            .SpatialLags = true,
            .Table = MeasureParts().set(),
            .Correlograms = {1, 4}};
  }

  Session session;
  LiveMeasures live{[] {}};
};

TEST_F(LiveSample, EveryNumberIsThatOfTheBatch) {
  live.SetWants(Everything());
  const LiveCut shown = Finished();
  ExpectAsMeasured(shown);
  EXPECT_TRUE(shown.InMicrovolts);
  EXPECT_EQ(shown.WhyNoSpikeFile + shown.WhyNoPositions, "");
  const CellPlots& plots = shown.Clusters[4].Plots;
  EXPECT_EQ(static_cast<int64_t>(plots.Heights->Time.size()), shown.Clusters[4].Measures.Average.Spikes);
  EXPECT_EQ(plots.SpatialLags->Rows, 2 * plots.Place->Rate.Rows - 1);
}

TEST_F(LiveSample, AChangeMakesStaleWhatDependsOnItAndNothingElse) {
  live.SetWants(Everything());
  Finished();
  live.SetWants({});
  Recut(1, 3000, 9000);
  const LiveCut stale = Finished();
  EXPECT_TRUE(stale.Clusters[1].Fresh.none());
  EXPECT_TRUE(stale.Clusters[1].Measured.all()) << "the former numbers are still there";
  EXPECT_TRUE(stale.Clusters[4].Fresh.all());
  EXPECT_FALSE(stale.Pairs.at({1, 4}).Fresh);
  EXPECT_FALSE(stale.Pairs.at({1, 1}).Fresh);
  EXPECT_TRUE(stale.Pairs.at({4, 4}).Fresh);
  EXPECT_EQ(stale.Clusters[1].Spikes, PointsInCluster(session, 1)) << "counts are always those of the cut";

  live.SetWants(Everything());
  ExpectAsMeasured(Finished());
}

TEST_F(LiveSample, ChangesInQuickSuccessionEndInTheLastCut) {
  live.SetWants(Everything());
  for (int k = 0; k < 40; ++k) Recut(k % 3 == 0 ? 4 : 1, 2000 + 100.0F * static_cast<float>(k), 12'000);
  ExpectAsMeasured(Finished());
  session.ClusterDefined[4] = false;
  session.Clusters[4].BoundaryCount = 0;
  ClassifyCluster(session, 4);
  live.SetCut(ClusterSetsOf(session.Points), session.ClusterDefined);
  const LiveCut shown = Finished();
  EXPECT_FALSE(shown.Clusters[4].Defined);
  EXPECT_EQ(shown.Pairs.count({1, 4}), 0U);
}

TEST_F(LiveSample, NothingIsComputedThatIsNotWanted) {
  live.SetWants(
      {.Cell = 0, .CellParts = {}, .SpatialLags = false, .Table = OnlyPart(MeasurePart::Train), .Correlograms = {}});
  const LiveCut shown = Finished();
  EXPECT_EQ(shown.Clusters[1].Fresh, OnlyPart(MeasurePart::Train));
  EXPECT_TRUE(shown.Pairs.empty());
  EXPECT_FALSE(shown.InMicrovolts) << "the spike file was read";
}

TEST_F(LiveSample, AFileThatCannotBeUsedIsSaidAndTheRestIsMeasured) {
  Load("NoSuchFile");
  live.SetWants(Everything());
  const LiveCut shown = Finished();
  EXPECT_NE(shown.WhyNoPositions.find("NoSuchFile"), std::string::npos) << shown.WhyNoPositions;
  EXPECT_FALSE(shown.Clusters[4].Fresh[IndexOf(MeasurePart::Place)]);
  EXPECT_TRUE(shown.Clusters[4].Fresh[IndexOf(MeasurePart::Isolation)]);
  EXPECT_TRUE(shown.Clusters[4].Fresh[IndexOf(MeasurePart::Train)]);
}

}  // namespace
}  // namespace pallomir
