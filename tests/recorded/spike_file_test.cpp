#include "pallomir/recorded/spike_file.h"

#include <gtest/gtest.h>

#include <random>

#include "pallomir/results/cluster_measures.h"
#include "pallomir/science/trains/stamp_matcher.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/spike_files.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

constexpr int64_t kEver = INT64_MAX;

ClusterMeasures Measured(const std::string& path, const std::vector<int64_t>& spikes, int64_t first = 0,
                         int64_t last = kEver) {
  RecordingWorld world;
  return MeasureCluster(world, path, spikes, {first, last});
}

TEST(SpikeFile, TakesTheScaleFromTheHeader) {
  const TemporaryFolder folder;
  struct Case {
    const char* Volts;
    bool Known;
    std::array<double, kWires> Scale;
  };
  for (const Case& c : {Case{"0.0000005", true, {0.5, 0.5, 0.5, 0.5}}, Case{"1e-6 2e-6 3e-6 4e-6", true, {1, 2, 3, 4}},
                        Case{"1e-6 2e-6", false, {1, 1, 1, 1}}, Case{"0", false, {1, 1, 1, 1}},
                        Case{"1e-6 -1e-6 1e-6 1e-6", false, {1, 1, 1, 1}}, Case{"nan", false, {1, 1, 1, 1}}}) {
    const SpikeFile file(folder.Put("TT1.Ntt", SpikeFileHeader(c.Volts)));
    EXPECT_EQ(file.ScaleKnown(), c.Known) << c.Volts;
    for (int wire = 0; wire < kWires; ++wire) EXPECT_NEAR(file.MicrovoltsPerCount()[wire], c.Scale[wire], 1e-12);
  }
}

TEST(SpikeFile, AveragesTheSpikesOfTheCluster) {
  const TemporaryFolder folder;
  // Out of order, with a repeated timestamp; the cluster has 20, 30, 30 and 70. 99 is in no cluster.
  std::string bytes = SpikeFileHeader();
  for (const auto& [stamp, value] : {std::pair(30, 10), {20, 20}, {99, 5000}, {30, 30}, {70, 40}, {30, 7000}})
    bytes += SpikeBytes(static_cast<uint64_t>(stamp), value);
  const std::string path = folder.Put("TT1.Ntt", bytes + "a piece");
  const ClusterMeasures all = Measured(path, {20, 30, 30, 70, 71});
  EXPECT_EQ(all.Average.Spikes, 4);
  EXPECT_EQ(all.Missing, 1);
  EXPECT_EQ(all.Ambiguous, 1);
  EXPECT_EQ(all.TrailingBytes, 7);
  EXPECT_TRUE(all.InMicrovolts);
  for (int wire = 0; wire < kWires; ++wire) {
    EXPECT_DOUBLE_EQ(all.Average.Mean[wire][31], 0.5 * 25 * (wire + 1));
    EXPECT_NEAR(all.Average.Deviation[wire][0], 0.5 * (wire + 1) * std::sqrt(500.0 / 3), 1e-12);
  }
  EXPECT_EQ(all.Apart.Spikes, 4);
  EXPECT_EQ(all.Apart.Others, 2);
  EXPECT_EQ(all.Apart.Features, 8);

  const ClusterMeasures range = Measured(path, {20, 30, 70}, 20, 30);
  EXPECT_EQ(range.Average.Spikes, 2);
  EXPECT_DOUBLE_EQ(range.Average.Mean[0][0], 0.5 * 15);
  EXPECT_EQ(range.Apart.Others, 2);
  EXPECT_EQ(Measured(path, {20}).Average.Deviation[0][0], 0) << "one spike has no deviation";
}

TEST(SpikeFile, UnrecordedWiresGiveNoFeatures) {
  const TemporaryFolder folder;
  std::mt19937 random(1);
  std::string bytes;
  std::vector<int64_t> cluster;
  for (int i = 0; i < 300; ++i) {
    WireSamples samples{};
    for (const int wire : {0, 3})
      for (auto& sample : samples[wire]) sample = static_cast<int16_t>(random() % 200 + (i % 5 == 0 ? 500 : 0));
    if (i % 5 == 0) cluster.push_back(1000 + i);
    bytes += SpikeBytes(static_cast<uint64_t>(1000 + i), samples);
  }
  const ClusterMeasures measures = Measured(folder.Put("TT1.Ntt", SpikeFileHeader() + bytes), cluster);
  EXPECT_EQ(measures.Apart.Features, 4);
  EXPECT_EQ(measures.Average.Recorded, (std::array{true, false, false, true}));
  ASSERT_TRUE(measures.Apart.IsolationDistance);
  EXPECT_GT(*measures.Apart.IsolationDistance, 100);
  EXPECT_LT(*measures.Apart.LRatio, 1e-6);
  const ClusterMeasures bare = Measured(folder.Put("bare.Ntt", bytes), cluster);
  EXPECT_FALSE(bare.InMicrovolts) << "no header, no scale";
  EXPECT_EQ(bare.Apart.IsolationDistance, measures.Apart.IsolationDistance);
  EXPECT_NEAR(bare.Average.Mean[0][5], 2 * measures.Average.Mean[0][5], 1e-9);
}

TEST(SpikeFile, BadInputIsCountedOrRefused) {
  const TemporaryFolder folder;
  const std::string good = SpikeBytes(50, 3), odd = SpikeBytes(UINT64_MAX, 3);
  const std::string other = MakeRawHeader("spikes", {{"RecordSize", "112"}});
  struct Case {
    std::string Bytes;
    std::string Refused;
    int64_t Spikes, Unreadable;
  };
  for (const Case& c :
       {Case{"", "", 0, 0}, Case{"#", "", 0, 0}, Case{SpikeFileHeader(), "", 0, 0},
        Case{SpikeFileHeader() + good + odd + good, "", 1, 1},
        Case{SpikeFileHeader() + good + odd + odd,
             "TT1.Ntt is not a spike file of the acquisition system: 2 of its records have an impossible timestamp.", 0,
             0},
        Case{std::string(3000, 'x'),
             "TT1.Ntt is not a spike file of the acquisition system: 9 of its records have an impossible timestamp.", 0,
             0},
        Case{other + good,
             "TT1.Ntt holds records of 112 bytes according to its header; the tetrode spikes of a .Ntt file have 304.",
             0, 0}}) {
    const std::string path = folder.Put("TT1.Ntt", c.Bytes);
    ClusterMeasures measures;
    EXPECT_EQ(Refusal([&] { measures = Measured(path, {50}); }), c.Refused);
    EXPECT_EQ(measures.Average.Spikes, c.Spikes);
    EXPECT_EQ(measures.Unreadable, c.Unreadable);
    EXPECT_FALSE(measures.Apart.IsolationDistance);
  }
  EXPECT_EQ(Refusal([&] { Measured(folder / "none.Ntt", {}); }), folder / "none.Ntt" + " does not exist.");
}

TEST(SpikeFile, CanBeStopped) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int i = 0; i < 5000; ++i) bytes += SpikeBytes(static_cast<uint64_t>(i), i);
  const std::string path = folder.Put("TT1.Ntt", bytes);
  RecordingWorld world;
  world.InterruptAt = 1;
  // The work checks every 20 ms; repeat until it takes that long.
  EXPECT_THROW(while (true) MeasureCluster(world, path, std::vector<int64_t>(1000, 3), {0, kEver}), Interrupted);
  EXPECT_FALSE(world.ProgressVisible);
}

TEST(StampMatcher, MatchesTimestampsAsRoundedInTextFiles) {
  for (const auto& [stamp, written] : {std::pair<int64_t, int64_t>{999'999'999'999'999, 999'999'999'999'999},
                                       {1'700'000'000'000'004, 1'700'000'000'000'000},
                                       {1'700'000'000'000'005, 1'700'000'000'000'000},
                                       {1'700'000'000'000'015, 1'700'000'000'000'020},
                                       {1'700'000'000'000'006, 1'700'000'000'000'010},
                                       {99'999'999'999'999'951, 100'000'000'000'000'000},
                                       {-5, -5}})
    EXPECT_EQ(StampAsWritten(stamp), written) << stamp;
  const std::vector<int64_t> cluster{1'700'000'000'000'020, 7};
  StampMatcher matcher(cluster);
  EXPECT_TRUE(matcher.Take(1'700'000'000'000'023));
  EXPECT_FALSE(matcher.Take(6));
  EXPECT_TRUE(matcher.Take(7));
  EXPECT_FALSE(matcher.Take(8));
  EXPECT_FALSE(matcher.Take(7));
  EXPECT_EQ(matcher.Missing(), 0);
  EXPECT_EQ(matcher.Ambiguous(), 1);
}

}  // namespace
}  // namespace pallomir
