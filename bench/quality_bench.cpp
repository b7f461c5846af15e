// Isolation of a cluster with one in fifty of a file's spikes.

#include <cmath>
#include <random>

#include "pallomir/files/bytes.h"
#include "pallomir/files/save_file.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/results/cluster_measures.h"
#include "support.h"

namespace pallomir::bench {

namespace {

constexpr int kOneIn = 50;

std::string SpikeFilePath() {
  static const std::string path = [] {
    const std::string name = RecordingFolder() + "/bench.Ntt";
    SaveFile file(name);
    std::mt19937 generator(1);
    std::array<unsigned char, kTetrodeLayout.RecordBytes> record{};
    for (int64_t r = 0; r < Spikes(); ++r) {
      StoreLittleEndian(record.data(), static_cast<uint64_t>(1000 * r));
      const int height = r % kOneIn == 0 ? 6000 : 1500 + static_cast<int>(generator() % 1500);
      for (int i = 0; i < kWaveformSamples * kWires; ++i) {
        const int t = i / kWires - 8;
        const auto shape = static_cast<int>(height * std::exp(-t * t / 12.0) / (1 + i % kWires));
        StoreLittleEndian(record.data() + kSpikeSamples + 2 * i,
                          static_cast<int16_t>(shape + static_cast<int>(generator() % 600) - 300));
      }
      file.Write(record.data(), record.size());
    }
    file.Commit();
    return name;
  }();
  return path;
}

std::vector<int64_t> Stamps() {
  std::vector<int64_t> stamps;
  for (int64_t r = 0; r < Spikes(); r += kOneIn) stamps.push_back(1000 * r);
  return stamps;
}

void MeasureOurs(benchmark::State& state) {
  const std::string path = SpikeFilePath();
  const std::vector<int64_t> stamps = Stamps();
  QuietWorld world;
  for (auto _ : state) benchmark::DoNotOptimize(MeasureCluster(world, path, stamps, {0, INT64_MAX}));
}
BENCHMARK(MeasureOurs)->Name("quality and average waveform, reading included/ours")->Unit(benchmark::kMillisecond);

void MeasureFloor(benchmark::State& state) {
  const std::string path = SpikeFilePath();
  for (auto _ : state) SpikeFile(path).ForEachSpike([](double) {}, [](const SpikeRecord&) {});
}
BENCHMARK(MeasureFloor)->Name("quality and average waveform, reading included/floor")->Unit(benchmark::kMillisecond);

struct Features {
  FeatureColumns Columns = FeatureColumns(8);
  std::vector<uint8_t> Member;
};
const Features& BenchFeatures() {
  static const Features features = [] {
    Features made;
    std::mt19937 generator(1);
    std::normal_distribution<float> normal;
    for (int64_t r = 0; r < Spikes(); ++r) {
      made.Member.push_back(r % kOneIn == 0);
      for (auto& column : made.Columns) column.push_back(normal(generator) * (made.Member.back() ? 1.0F : 4.0F));
    }
    return made;
  }();
  return features;
}

void IsolationOurs(benchmark::State& state) {
  const Features& features = BenchFeatures();
  for (auto _ : state) benchmark::DoNotOptimize(IsolationOf(features.Columns, features.Member));
}
BENCHMARK(IsolationOurs)->Name("isolation distance and L-ratio of 8 features/ours")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace pallomir::bench
