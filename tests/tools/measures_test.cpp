// The report's measures of a spike file, compared with the simulation that made it.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>

#include "pallomir/results/cluster_measures.h"
#include "raw_files.h"
#include "support/recording_world.h"
#include "support/spike_files.h"
#include "tools/sample/cells.h"
#include "tools/sample/curves.h"
#include "tools/sample/make_sample.h"
#include "tools/sample/spike_shapes.h"

namespace pallomir {
namespace {

/// The height of sample s of a principal cell's spike with a peak of 1, at the middle of its sampling phases.
double PrincipalAt(int s) {
  double sum = 0;
  for (int phase = 0; phase < 8; ++phase) {
    const double t = s - kPeakSample + (phase + 0.5) / 8 - 0.5;
    sum += Hill(t / (t < 0 ? 6 : 9)) - 0.38 * Hill((t - 13) / 10);
  }
  return sum / 8;
}

TEST(Measures, AverageWaveformIsTheTemplateWithinItsStandardError) {
  const SpikeShape shape{{180, 90, 45, 120}, 0};
  const WaveformMaker maker;
  Draws draws(11);
  std::string bytes = SpikeFileHeader("0.000000030517578125");
  std::vector<int64_t> unit;
  for (int i = 0; i < 3000; ++i) {
    const bool own = i % 2 == 0;
    const TetrodeSamples made = maker.Make(own ? shape : SpikeShape{{60, 70, 50, 40}, 1}, draws);
    WireSamples samples;
    for (int s = 0; s < kWaveformSamples; ++s)
      for (int wire = 0; wire < kWires; ++wire) samples[wire][s] = made[s][wire];
    bytes += SpikeBytes(static_cast<uint64_t>(1000 * i), samples);
    if (own) unit.push_back(1000 * i);
  }
  const TemporaryFolder folder;
  RecordingWorld world;
  const ClusterMeasures measures = MeasureCluster(world, folder.Put("TT1.Ntt", bytes), unit, {0, INT64_MAX});
  ASSERT_EQ(measures.Average.Spikes, 1500);
  double squares = 0;
  for (int wire = 0; wire < kWires; ++wire)
    for (int s = 0; s < kWaveformSamples; ++s) {
      const double error = measures.Average.Deviation[wire][s] / std::sqrt(1500.0);
      const double off = measures.Average.Mean[wire][s] - shape.Heights[wire] * PrincipalAt(s);
      EXPECT_LT(std::abs(off), 4.5 * error) << "wire " << wire << ", sample " << s;
      EXPECT_GT(measures.Average.Deviation[wire][s], 8) << "the noise has 9 microvolts";
      squares += off * off / (error * error);
    }
  // The 128 samples are off by one standard error on average, within what their correlation allows.
  EXPECT_GT(squares / 128, 0.4);
  EXPECT_LT(squares / 128, 2);
  EXPECT_GT(*measures.Apart.IsolationDistance, 50);
  EXPECT_LT(*measures.Apart.LRatio, 0.01);
}

TEST(Measures, CellsOfTheSampleAreSeparateFromTheNoise) {
  const TemporaryFolder folder;
  std::ostringstream told;
  ProgressBar progress(told, false);
  MakeSample({.Folder = folder / "demo", .Spikes = 12'000}, progress);
  const std::string path = folder / "demo/TT1/TT1.Ntt";
  std::map<uint32_t, std::vector<int64_t>> cells;
  SpikeFile(path).ForEachSpike([](double) {},
                               [&](const SpikeRecord& record) {
                                 cells[LoadLittleEndian<uint32_t>(record.Bytes + kSpikeCell)].push_back(record.Stamp);
                               });
  RecordingWorld world;
  for (uint32_t cell = 1; cell <= kCells.size(); ++cell) {
    const ClusterMeasures measures = MeasureCluster(world, path, cells[cell], {0, INT64_MAX});
    EXPECT_EQ(measures.Missing, 0);
    ASSERT_TRUE(measures.Apart.IsolationDistance) << cell;
    EXPECT_GT(*measures.Apart.IsolationDistance, 15) << cell;
    EXPECT_LT(*measures.Apart.LRatio, 0.3) << cell;
  }
  // A random set of spikes is not a cluster.
  std::vector<int64_t> random;
  for (size_t i = 0; i < cells[0].size(); i += 7) random.push_back(cells[0][i]);
  EXPECT_GT(*MeasureCluster(world, path, random, {0, INT64_MAX}).Apart.LRatio, 1);
}

}  // namespace
}  // namespace pallomir
