// Writing the cut as text: 18 numbers per spike, in 30 clusters.

#include <cstdio>
#include <random>
#include <string>

#include "pallomir/files/number_text.h"
#include "pallomir/files/platform.h"
#include "pallomir/output/cluster_files.h"
#include "pallomir/output/spike_lines.h"
#include "support.h"

namespace pallomir::bench {

namespace {

/// The cluster files' parameters, with the peaks of a tetrode (the others are 0) or of 16 channels, with fractions as
/// after averaging, and every spike in one of 30 clusters.
Session CutSession(int channels) {
  Session session;
  session.DataDirectory = RecordingFolder();
  session.Points = PointTable(static_cast<size_t>(Spikes()));
  session.Points.AddSlot();
  std::mt19937 generator(1);
  std::normal_distribution<float> normal(100, 30);
  for (size_t i = 0; i < session.Points.Rows(); ++i) {
    for (int c = 0; c < channels; ++c) session.Points.Column(c < kRecordSlot ? c : c + 1)[i] = normal(generator);
    session.Points.Column(kRecordSlot)[i] = static_cast<float>(i);
    session.Points.Stamps()[i] = 1'700'000'000'000U + 1000 * i;
    session.Points.Slot(0)[i] = static_cast<int16_t>(1 + generator() % kClusters);
  }
  session.ClusterDefined.fill(true);
  return session;
}

void WriteOurs(benchmark::State& state, int channels) {
  const Session session = CutSession(channels);
  QuietWorld world;
  for (auto _ : state) WriteClusterFiles(session, world, {"cl-bench", "0", "1e12"});
}

/// One pass per file, and a print per number.
void WriteNaive(benchmark::State& state, int channels) {
  const Session session = CutSession(channels);
  const PointTable& points = session.Points;
  for (auto _ : state)
    for (int c = 0; c <= kClusters; ++c) {
      const std::string path = RecordingFolder() + "/naive." + std::to_string(c);
      std::FILE* file = OpenFile(PlatformPath(path), "wb");
      for (size_t i = 0; i < points.Rows(); ++i) {
        if (points.Slot(0)[i] != c) continue;
        char text[kNumberRoom];
        for (int k = 0; k < 17; ++k) {
          const int p = k == 0 ? kRecordSlot : k <= kRecordSlot ? k - 1 : k;
          std::snprintf(text, sizeof text, "%.7g,", static_cast<double>(points.Column(p)[i]));
          std::fputs(text, file);
        }
        std::snprintf(text, sizeof text, "%.15g\r\n", static_cast<double>(points.Stamps()[i]));
        std::fputs(text, file);
      }
      FlushToDisk(file);
      std::fclose(file);
    }
}

/// Only the formatting, in the order of the points.
void FormatOnly(benchmark::State& state, int channels) {
  const Session session = CutSession(channels);
  const SpikeLines lines(session.Points);
  char line[SpikeLines::kRoom];
  for (auto _ : state)
    for (size_t i = 0; i < session.Points.Rows(); ++i) {
      benchmark::DoNotOptimize(lines.PutSpike(line, i));
      benchmark::ClobberMemory();
    }
}

const bool registered = [] {
  const auto add = [](const std::string& name, auto function, int channels, int repetitions) {
    benchmark::RegisterBenchmark(name.c_str(), function, channels)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(repetitions);
  };
  for (const int channels : {4, 16}) {
    const std::string path = "write 30 cluster files of " + std::to_string(channels) + " channels";
    add(path + "/floor", FormatOnly, channels, 5);
    add(path + "/ours", WriteOurs, channels, 5);
    add(path + "/naive", WriteNaive, channels, 2);
  }
  return true;
}();

}  // namespace

}  // namespace pallomir::bench
