#include <algorithm>
#include <cmath>

#include "fuzz/fuzz_target.h"
#include "pallomir/files/bytes.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/results/cluster_measures.h"
#include "pallomir/results/report_series.h"
#include "support/recording_world.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {

/// A spike file, measured for a cluster that contains every third record, and the same bytes as a cluster file. The
/// counts add up, and all figures are within their bounds.
FUZZ_TARGET(FuzzSpikeFile) {
  static const TemporaryFolder folder;
  const std::string path = folder.Put("fuzzed.Ntt", {reinterpret_cast<const char*>(data), size});
  RecordingWorld world;
  Refusal([&] {
    std::vector<int64_t> cluster;
    uint64_t readable = 0;
    SpikeFile file(path);
    file.ForEachSpike([](double share) { REQUIRE(share > 0 && share <= 1); },
                      [&](const SpikeRecord& record) {
                        if (readable++ % 3 == 0) cluster.push_back(record.Stamp);
                      });
    REQUIRE(readable + file.Unreadable() == file.RecordCount());
    const ClusterMeasures measures = MeasureCluster(world, path, cluster, {0, INT64_MAX});
    REQUIRE(measures.Missing == 0 && measures.Apart.Spikes == static_cast<int64_t>(cluster.size()));
    REQUIRE(measures.Average.Spikes == measures.Apart.Spikes);
    REQUIRE(static_cast<uint64_t>(measures.Apart.Spikes + measures.Apart.Others) == readable);
    for (int wire = 0; wire < kWires; ++wire)
      for (int s = 0; s < kWaveformSamples; ++s) {
        REQUIRE(std::abs(measures.Average.Mean[wire][s]) <= 32768.001e6);
        REQUIRE(measures.Average.Deviation[wire][s] >= 0);
      }
    if (measures.Apart.LRatio) {
      REQUIRE(*measures.Apart.LRatio >= 0 && *measures.Apart.IsolationDistance >= 0);
      REQUIRE(*measures.Apart.LRatio * static_cast<double>(cluster.size()) <=
              static_cast<double>(measures.Apart.Others) + 1e-6);
    }
    MeasureCluster(world, path, cluster, {1000, 2000});
  });
  Refusal([&] {
    const ClusterLines lines = ReadClusterLines(world, path);
    REQUIRE(lines.Time.size() == lines.MaxHeight.size() && std::is_sorted(lines.Time.begin(), lines.Time.end()));
  });
  return 0;
}

}  // namespace pallomir
