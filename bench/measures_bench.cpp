// The measures of a cell, beside the same with numpy and scipy.

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include "by_numpy.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/results/measure_clusters.h"
#include "support.h"
#include "walk.h"

namespace pallomir::bench {

namespace {

constexpr size_t kWaveforms = 100'000;

LoadedTime WholeWalk() {
  return LoadedTime({{WalkInBox().Samples.Time.front(), WalkInBox().Samples.Time.back()}});
}

void PutWalk() {
  const Walk& walk = WalkInBox();
  PutArray("time", std::vector<double>(walk.Samples.Time.begin(), walk.Samples.Time.end()));
  PutArray("x", walk.Samples.X);
  PutArray("y", walk.Samples.Y);
  PutArray("direction", walk.Samples.Direction);
  PutArray("spikes", walk.Spikes);
}

std::vector<int64_t> OneIn(const std::vector<int64_t>& spikes, size_t step) {
  std::vector<int64_t> some;
  for (size_t i = 0; i < spikes.size(); i += step) some.push_back(spikes[i]);
  return some;
}

// --- trains

void TrainOurs(benchmark::State& state) {
  const LoadedTime time = WholeWalk();
  for (auto _ : state) benchmark::DoNotOptimize(TrainMeasuresOf(WalkInBox().Spikes, time, {}));
}
BENCHMARK(TrainOurs)->Name("100 000 spikes: measures of the train/ours")->Unit(benchmark::kMillisecond);

void TrainNumpy(benchmark::State& state) {
  PutWalk();
  ByNumpy(state, "train");
}
BENCHMARK(TrainNumpy)->Name("100 000 spikes: measures of the train/naive")->Apply(Once);

std::vector<ClusterSpike> EverySecond(size_t first) {
  std::vector<ClusterSpike> spikes;
  for (size_t i = first; i < WalkInBox().Spikes.size(); i += 2)
    spikes.push_back({WalkInBox().Spikes[i], static_cast<int64_t>(i)});
  return spikes;
}

void CorrelogramOurs(benchmark::State& state) {
  const std::vector<ClusterSpike> a = EverySecond(0), b = EverySecond(1);
  const LoadedTime time = WholeWalk();
  for (auto _ : state) benchmark::DoNotOptimize(CorrelogramOf(a, b, time, {}));
}
BENCHMARK(CorrelogramOurs)->Name("cross-correlogram of 2 x 50 000 spikes/ours")->Unit(benchmark::kMillisecond);

void CorrelogramNumpy(benchmark::State& state) {
  PutWalk();
  ByNumpy(state, "correlogram");
}
BENCHMARK(CorrelogramNumpy)->Name("cross-correlogram of 2 x 50 000 spikes/naive")->Apply(Once);

// --- waveforms

struct Waveforms {
  std::vector<WireSamples> Samples = std::vector<WireSamples>(kWaveforms);
  SpikeHeights Heights;
  WaveformAverager Averager;

  Waveforms() {
    std::mt19937 generator(1);
    std::normal_distribution<float> noise(0, 300);
    for (size_t i = 0; i < kWaveforms; ++i) {
      Heights.Time.push_back(static_cast<int64_t>(i) * 10'000);
      for (int wire = 0; wire < kWires; ++wire)
        for (int s = 0; s < kWaveformSamples; ++s)
          Samples[i][wire][s] =
              static_cast<int16_t>(6000 / (1 + wire) * std::exp(-(s - 8) * (s - 8) / 12.0) -
                                   60 * std::max(0, 16 - std::abs(s - 20)) + static_cast<double>(noise(generator)));
    }
  }
};

void WaveformOurs(benchmark::State& state) {
  static const Waveforms given;
  const LoadedTime time({{0, static_cast<int64_t>(kWaveforms) * 10'000}});
  for (auto _ : state) {
    WaveformAverager averager;
    SpikeHeights heights;
    heights.Time = given.Heights.Time;
    for (const WireSamples& samples : given.Samples) {
      averager.Add(samples);
      for (int wire = 0; wire < kWires; ++wire)
        heights.Counts[wire].push_back(*std::max_element(samples[wire].begin(), samples[wire].end()));
    }
    benchmark::DoNotOptimize(WaveformMeasuresOf(averager.Result({1, 1, 1, 1}), heights, {1, 1, 1, 1}, 32'000, time));
  }
  PutArray("samples", given.Samples);
}
BENCHMARK(WaveformOurs)->Name("100 000 waveforms: their measures/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ByNumpy, waveform, "waveform")->Name("100 000 waveforms: their measures/naive")->Apply(Once);

// --- behaviour

void CellOurs(benchmark::State& state) {
  const Arena arena(WalkInBox().Samples, WholeWalk(), {});
  const std::vector<int64_t> spikes = OneIn(WalkInBox().Spikes, 10);
  for (auto _ : state) benchmark::DoNotOptimize(arena.MeasuresOf(spikes));
}
BENCHMARK(CellOurs)->Name("10 000 spikes: place, grid, direction, speed/ours")->Unit(benchmark::kMillisecond);

void CellNumpy(benchmark::State& state) {
  PutWalk();
  ByNumpy(state, "cell");
}
BENCHMARK(CellNumpy)->Name("10 000 spikes: place, grid, direction, speed/naive")->Apply(Once);

/// Every second sample of the walk.
Positions HalfOf(const Positions& samples) {
  Positions half = samples;
  for (auto* column : {&half.X, &half.Y, &half.Direction}) column->clear();
  half.Time = OneIn(samples.Time, 2);
  for (size_t i = 0; i < samples.Time.size(); i += 2) {
    half.X.push_back(samples.X[i]);
    half.Y.push_back(samples.Y[i]);
    half.Direction.push_back(samples.Direction[i]);
  }
  return half;
}

void ChanceOf(benchmark::State& state, const Positions& samples, size_t step, int shifts) {
  MeasureSettings settings;
  settings.Chance.Shifts = shifts;
  const Arena arena(samples, WholeWalk(), settings);
  const std::vector<int64_t> spikes = OneIn(WalkInBox().Spikes, step);
  const BehaviourMeasures measures = arena.MeasuresOf(spikes);
  for (auto _ : state) benchmark::DoNotOptimize(arena.ChanceOf(spikes, measures));
}
void ChanceOurs(benchmark::State& state) {
  ChanceOf(state, WalkInBox().Samples, 10, 1000);
}
void ChanceTwiceTheShifts(benchmark::State& state) {
  ChanceOf(state, WalkInBox().Samples, 10, 2000);
}
void ChanceTwiceTheSpikes(benchmark::State& state) {
  ChanceOf(state, WalkInBox().Samples, 5, 1000);
}
void ChanceHalfTheSamples(benchmark::State& state) {
  ChanceOf(state, HalfOf(WalkInBox().Samples), 10, 1000);
}

void InRealTime(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->UseRealTime();
}
BENCHMARK(ChanceOurs)->Name("10 000 spikes: 1 000 shifts/ours")->Apply(InRealTime);
BENCHMARK(ChanceTwiceTheShifts)->Name("10 000 spikes: 2 000 shifts/ours")->Apply(InRealTime);
BENCHMARK(ChanceTwiceTheSpikes)->Name("20 000 spikes: 1 000 shifts/ours")->Apply(InRealTime);
BENCHMARK(ChanceHalfTheSamples)->Name("10 000 spikes, half the samples: 1 000 shifts/ours")->Apply(InRealTime);

void ChanceNumpy(benchmark::State& state) {
  PutWalk();
  ByNumpy(state, "chance");
}
BENCHMARK(ChanceNumpy)->Name("10 000 spikes: 1 000 shifts/naive")->Apply(Once);

// --- a whole cut

/// Ten hexagons side by side in each of three clouds of the recording.
void DefineThirtyClusters(Session& session) {
  constexpr std::array<std::array<float, 2>, 3> centres = {{{120, 60}, {60, 140}, {40, 50}}};
  session.Clusters = {};
  for (int c = 0; c < kClusters; ++c) {
    Boundary boundary = Polygon(6);
    for (Vertex& vertex : boundary.Vertices) {
      vertex.X = centres[c / 10][0] + 10 * static_cast<float>(c % 5 - 2) + (vertex.X - 120) / 5;
      vertex.Y = centres[c / 10][1] + 12 * static_cast<float>(c % 10 / 5) + (vertex.Y - 60) / 5;
    }
    session.Clusters[c + 1].BoundaryCount = 1;
    session.Clusters[c + 1].Boundaries[0] = boundary;
  }
  ClassifyAllClusters(session);
}

void MeasureCut(benchmark::State& state) {
  Session& session = LoadedSession();
  DefineThirtyClusters(session);
  const auto stamps = session.Points.Stamps();
  const MeasureSources sources{.SpikeFile = SpikeFilePath(),
                               .PositionFile = WalkFile("Pos.p"),
                               .Time = LoadedTime({{0, static_cast<int64_t>(stamps[session.Points.Rows() - 1])}}),
                               .Settings = {}};
  for (auto _ : state) benchmark::DoNotOptimize(MeasureClusters(session, sources));
}
BENCHMARK(MeasureCut)->Name("measures of 30 clusters, files included/ours")->Apply(InRealTime);

}  // namespace

}  // namespace pallomir::bench
