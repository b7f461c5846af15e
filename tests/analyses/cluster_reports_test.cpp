// Reports of many clusters at once, beside those of one.

#include "pallomir/analyses/cluster_reports.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include "pallomir/analyses/commands.h"
#include "pallomir/clusters/classify.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/sessions.h"
#include "support/spike_files.h"

namespace pallomir {
namespace {

constexpr int kSpikes = 600;
const ClusterFileTexts kTexts{"cl", "1000000", "1700000"};

/// 600 spikes, a millisecond apart, while the animal walks to and fro; the spikes' values wander with their number.
struct Recording : ::testing::Test {
  const TemporaryFolder folder;
  const TemporaryFolder scratch;
  RecordingWorld world;
  std::minstd_rand draw;
  Session session = SessionWith(Line());

  Recording() {
    std::string spikes = SpikeFileHeader(), walk;
    for (int n = 0; n < kSpikes; ++n) {
      const uint64_t stamp = 1'000'000U + 1'000U * static_cast<unsigned>(n);
      session.Points.Stamps()[n] = stamp;
      session.Points.Column(97)[n] = static_cast<float>(n % 17);
      spikes += SpikeBytes(stamp, Waveform());
    }
    for (int i = 0; i < 40; ++i)
      walk += std::to_string(1'000'000 + 16'000 * i) + " " + std::to_string(100 + 5 * (i % 20)) + " " +
              std::to_string(200 + 3 * (i % 13)) + " " + std::to_string(9 * i) + "\n";
    session.DataDirectory = folder / "TT1";
    session.File.Path = folder.Put("TT1/TT1.Ntt.parms", "");
    folder.Put("TT1/TT1.Ntt", spikes);
    folder.Put("Pos.p", walk);
    folder.Put("TT1/MeasureSettings", "BinCm 5\n");
  }
  /// Samples that have nothing to do with one another.
  WireSamples Waveform() {
    WireSamples samples;
    for (auto& wire : samples)
      for (int16_t& sample : wire) sample = static_cast<int16_t>(draw() % 100);
    return samples;
  }
  static std::vector<Vertex> Line() {
    std::vector<Vertex> line;
    for (int n = 0; n < kSpikes; ++n) line.push_back({static_cast<float>(n), 0});
    return line;
  }
  /// Cluster c takes the points first..last.
  void Define(int c, int first, int last) {
    AddBoundary(session, c, RectangleOf(static_cast<float>(first) - 0.5F, -1, static_cast<float>(last) + 0.5F, 1));
    session.ClusterDefined[c] = true;
    ClassifyCluster(session, c);
  }
  std::map<int, Report> MakeAll() {
    std::map<int, Report> reports;
    MakeReports(session, world, kTexts, "Pos.p", DefinedClusters(session), scratch / "",
                [&](int c, const Report& report, World&) { reports.emplace(c, report); });
    return reports;
  }
  /// As the command for the current cluster makes it.
  Report MakeOne(int16_t c) {
    Session one;
    std::swap(one, session);
    one.CurrentCluster = c;
    one.TemporaryMode = true;
    WriteClusterFiles(one, world, kTexts);
    Report report =
        MakeReport(world, ReportFilesOf(one, "Pos.p", TemporaryClusterFilePath(one), TemporaryTimeFilePath(one)), c);
    one.TemporaryMode = false;
    std::swap(one, session);
    return report;
  }
};

/// Equal, or both unknown.
void ExpectSame(double a, double b, const char* what) {
  EXPECT_TRUE(a == b || (std::isnan(a) && std::isnan(b))) << what << ": " << a << " and " << b;
}

TEST_F(Recording, AReportOfAllHasTheNumbersOfTheSingleOne) {
  Define(2, 0, 199);
  Define(7, 250, 549);
  Define(30, 599, 599);
  const std::map<int, Report> all = MakeAll();
  ASSERT_EQ(all.size(), 3);
  for (const auto& [c, report] : all) {
    const Report single = MakeOne(static_cast<int16_t>(c));
    EXPECT_EQ(report.Spikes.Time, single.Spikes.Time) << c;
    EXPECT_EQ(report.Spikes.MaxHeight, single.Spikes.MaxHeight);
    EXPECT_EQ(report.Rate.Grid.Columns, single.Rate.Grid.Columns) << "by the settings of the recording";
    EXPECT_EQ(report.Remarks, single.Remarks);
    EXPECT_EQ(report.Refractory.Short, single.Refractory.Short);
    ExpectSame(report.MeanRate, single.MeanRate, "rate");
    ExpectSame(report.Rate.Information, single.Rate.Information, "information");
    ExpectSame(report.Measures.Apart.IsolationDistance.value_or(-1),
               single.Measures.Apart.IsolationDistance.value_or(-1), "isolation distance");
    ExpectSame(report.Measures.Apart.LRatio.value_or(-1), single.Measures.Apart.LRatio.value_or(-1), "L-ratio");
    ExpectSame(report.Refractory.ContaminationByOne.Value.Value, single.Refractory.ContaminationByOne.Value.Value,
               "contamination");
    ExpectSame(report.Direction.VectorLength, single.Direction.VectorLength, "vector length");
  }
  EXPECT_EQ(all.at(2).Spikes.Time.size(), 200);
  EXPECT_TRUE(all.at(2).Measures.Apart.LRatio) << "not only unknown values are compared";
}

TEST_F(Recording, EverySpikeOfAnOverlapIsOnOnePage) {
  Define(1, 0, 399);
  Define(2, 200, 599);
  const std::map<int, Report> all = MakeAll();
  std::vector<int64_t> times = all.at(1).Spikes.Time;
  times.insert(times.end(), all.at(2).Spikes.Time.begin(), all.at(2).Spikes.Time.end());
  std::sort(times.begin(), times.end());
  EXPECT_EQ(times.size(), size_t{kSpikes});
  EXPECT_EQ(std::adjacent_find(times.begin(), times.end()), times.end());
}

TEST_F(Recording, LeavesTheFilesAndTheModeOfTheAnalysesAlone) {
  for (int c = 1; c <= 12; ++c) Define(c, 50 * c - 50, 50 * c - 1);
  const std::filesystem::path cluster = folder.Put("TT1/cl-tmp", "mine"), times = folder.Put("TT1/ttmp", "mine too");
  session.CurrentCluster = 2;
  world.Slow = true;
  MakeAll();
  EXPECT_FALSE(session.TemporaryMode);
  EXPECT_EQ(session.CurrentCluster, 2);
  EXPECT_EQ(std::filesystem::file_size(cluster), 4);
  EXPECT_EQ(std::filesystem::file_size(times), 8);
  EXPECT_TRUE(world.Log.empty() && world.Boxes.empty());
  // One bar for all clusters, which never goes back.
  ASSERT_GT(world.Progress.size(), 4);
  EXPECT_TRUE(std::is_sorted(world.Progress.begin(), world.Progress.end()));
  EXPECT_FALSE(world.ProgressVisible);
}

TEST_F(Recording, NeedsTheFilesThatTheSingleReportNeeds) {
  Define(1, 0, 399);
  std::filesystem::remove(folder / "TT1/TT1.Ntt");
  EXPECT_EQ(Refusal([&] { MakeAll(); }), "Error.  Neuralynx .Ntt spike file is not present.");
  std::filesystem::remove(folder / "Pos.p");
  EXPECT_EQ(Refusal([&] { MakeAll(); }), folder / R"(TT1\..\Pos.p is not present)");
}

}  // namespace
}  // namespace pallomir
