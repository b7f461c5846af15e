// Isolation of a cluster with one in fifty of a file's spikes.

#include <random>

#include "by_numpy.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/results/cluster_measures.h"
#include "pallomir/science/waveforms/cluster_separation.h"
#include "support.h"

namespace pallomir::bench {

namespace {

std::vector<int64_t> Stamps() {
  std::vector<int64_t> stamps;
  for (int64_t r = 0; r < Spikes(); r += kOneIn) stamps.push_back(kFirstStamp + 1000 * r);
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

void PutFeatures() {
  const Features& features = BenchFeatures();
  std::vector<double> values;
  for (const auto& column : features.Columns) values.insert(values.end(), column.begin(), column.end());
  PutArray("features", values);
  PutArray("member", features.Member);
}

void IsolationNumpy(benchmark::State& state) {
  PutFeatures();
  ByNumpy(state, "isolation");
}
BENCHMARK(IsolationNumpy)->Name("isolation distance and L-ratio of 8 features/naive")->Apply(Once);

void SeparationOurs(benchmark::State& state) {
  const Features& features = BenchFeatures();
  for (auto _ : state) {
    const FeatureMoments all = MomentsOf(features.Columns), own = MomentsOf(features.Columns, features.Member);
    benchmark::DoNotOptimize(SeparationOf(features.Columns, features.Member, all, own));
  }
}
BENCHMARK(SeparationOurs)->Name("d' and neighbours in 8 features/ours")->Unit(benchmark::kMillisecond);

void SeparationNumpy(benchmark::State& state) {
  PutFeatures();
  ByNumpy(state, "separation");
}
BENCHMARK(SeparationNumpy)->Name("d' and neighbours in 8 features/naive")->Apply(Once);

}  // namespace

}  // namespace pallomir::bench
