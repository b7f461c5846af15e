// The computations behind the analysis windows.

#include <algorithm>
#include <cmath>
#include <vector>

#include "pallomir/results/compute_direction.h"
#include "pallomir/results/compute_maps.h"
#include "pallomir/results/compute_trains.h"
#include "pallomir/science/behaviour/spatial_autocorrelation.h"
#include "support.h"
#include "walk.h"

namespace pallomir::bench {

namespace {

constexpr double kScale = 4;  // pixels per cm

struct Recorded {
  const std::vector<int64_t>& Spikes = WalkInBox().Spikes;
  Track Tracked = TrackWithin(WalkInBox().Samples, {0, kFarthestStamp});
  Map Occupancy = OccupancyMap(Tracked, BinSize(kScale));
  Map Rate = RateMap(CountSpikes(Tracked, SamplesOfSpikes(Tracked, Spikes), Occupancy).Counts, Occupancy);
};

const Recorded& Given() {
  static const Recorded recorded;
  return recorded;
}

// --- rate map

void RateMapOurs(benchmark::State& state) {
  const Recorded& r = Given();
  for (auto _ : state) {
    const Map occupancy = OccupancyMap(r.Tracked, BinSize(kScale));
    const auto samples = SamplesOfSpikes(r.Tracked, r.Spikes);
    benchmark::DoNotOptimize(RateMap(CountSpikes(r.Tracked, samples, occupancy).Counts, occupancy));
  }
}
BENCHMARK(RateMapOurs)->Name("100 000 spikes: rate map/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

double UnderKernel(const Map& map, int row, int column) {
  double sum = 0;
  for (int dr = -8; dr <= 8; ++dr)
    for (int dc = -8; dc <= 8; ++dc) {
      const int r = row + dr, c = column + dc;
      if (r >= 0 && c >= 0 && r < map.Rows && c < map.Columns)
        sum += std::exp(-(dr * dr + dc * dc) / 8.0) * map.At(r, c);
    }
  return sum;
}

/// A search for each spike, a kernel for each bin.
void RateMapNaive(benchmark::State& state) {
  const Recorded& r = Given();
  for (auto _ : state) {
    Map occupancy = r.Occupancy, counts = r.Occupancy, rate = r.Occupancy;
    std::fill(occupancy.Values.begin(), occupancy.Values.end(), 0);
    std::fill(counts.Values.begin(), counts.Values.end(), 0);
    const auto bin = [&](size_t i) {
      return counts.Index(static_cast<int>((r.Tracked.Y[i] - counts.Top) / counts.Bin),
                          static_cast<int>((r.Tracked.X[i] - counts.Left) / counts.Bin));
    };
    for (size_t i = 0; i < r.Tracked.Time.size(); ++i) occupancy.Values[bin(i)] += r.Tracked.Hold[i] / 1e6;
    for (const int64_t spike : r.Spikes) {
      const auto after = std::upper_bound(r.Tracked.Time.begin(), r.Tracked.Time.end(), spike);
      if (after != r.Tracked.Time.begin())
        ++counts.Values[bin(static_cast<size_t>(after - r.Tracked.Time.begin()) - 1)];
    }
    for (int row = 0; row < rate.Rows; ++row)
      for (int column = 0; column < rate.Columns; ++column)
        rate.Values[rate.Index(row, column)] = UnderKernel(counts, row, column) / UnderKernel(occupancy, row, column);
    benchmark::DoNotOptimize(rate);
  }
}
BENCHMARK(RateMapNaive)->Name("100 000 spikes: rate map/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

// --- spatial autocorrelation

void SpatialOurs(benchmark::State& state) {
  const Map& rate = Given().Rate;
  for (auto _ : state) benchmark::DoNotOptimize(SpatialAutocorrelation(rate));
}
BENCHMARK(SpatialOurs)
    ->Name("spatial autocorrelation of 40 x 40 bins/ours")
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3);

double PlainCorrelation(const Map& map, int rowLag, int columnLag) {
  std::vector<double> a, b;
  for (int row = std::max(0, -rowLag); row < std::min(map.Rows, map.Rows - rowLag); ++row)
    for (int c = std::max(0, -columnLag); c < std::min(map.Columns, map.Columns - columnLag); ++c) {
      if (std::isnan(map.At(row, c)) || std::isnan(map.At(row + rowLag, c + columnLag))) continue;
      a.push_back(map.At(row, c));
      b.push_back(map.At(row + rowLag, c + columnLag));
    }
  const auto n = static_cast<double>(a.size());
  double meanA = 0, meanB = 0, ab = 0, aa = 0, bb = 0;
  for (size_t i = 0; i < a.size(); ++i) meanA += a[i] / n, meanB += b[i] / n;
  for (size_t i = 0; i < a.size(); ++i) {
    ab += (a[i] - meanA) * (b[i] - meanB);
    aa += (a[i] - meanA) * (a[i] - meanA);
    bb += (b[i] - meanB) * (b[i] - meanB);
  }
  return ab / std::sqrt(aa * bb);
}

/// The textbook formula at every lag.
void SpatialNaive(benchmark::State& state) {
  const Map& rate = Given().Rate;
  for (auto _ : state) {
    double sum = 0;
    for (int row = 1 - rate.Rows; row < rate.Rows; ++row)
      for (int column = 1 - rate.Columns; column < rate.Columns; ++column) sum += PlainCorrelation(rate, row, column);
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(SpatialNaive)
    ->Name("spatial autocorrelation of 40 x 40 bins/naive")
    ->Unit(benchmark::kMillisecond)
    ->MinTime(0.3);

// --- spike trains

void TrainOurs(benchmark::State& state) {
  const Recorded& r = Given();
  for (auto _ : state) benchmark::DoNotOptimize(AutocorrelationOf(r.Spikes));
}
BENCHMARK(TrainOurs)->Name("100 000 spikes: train autocorrelation/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// All pairs.
void TrainNaive(benchmark::State& state) {
  const std::vector<double> spikes(Given().Spikes.begin(), Given().Spikes.end());
  for (auto _ : state) {
    std::vector<int64_t> near(50), far(100);
    for (size_t i = 0; i < spikes.size(); ++i)
      for (size_t j = i + 1; j < spikes.size(); ++j) {
        const double lag = spikes[j] - spikes[i];
        if (lag < 50e3) ++near[static_cast<size_t>(lag / 1e3)];
        if (lag < 500e3) ++far[static_cast<size_t>(lag / 5e3)];
      }
    benchmark::DoNotOptimize(near);
    benchmark::DoNotOptimize(far);
  }
}
BENCHMARK(TrainNaive)
    ->Name("100 000 spikes: train autocorrelation/naive")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

void IntervalsOurs(benchmark::State& state) {
  const Recorded& r = Given();
  for (auto _ : state) benchmark::DoNotOptimize(LogIntervalsOf(r.Spikes));
}
BENCHMARK(IntervalsOurs)->Name("100 000 spikes: log intervals/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// A logarithm for each interval.
void IntervalsNaive(benchmark::State& state) {
  const Recorded& r = Given();
  for (auto _ : state) {
    std::vector<int64_t> counts(kLogBins);
    for (size_t i = 1; i < r.Spikes.size(); ++i) {
      const double bin = std::floor(10 * std::log10(static_cast<double>(r.Spikes[i] - r.Spikes[i - 1]) / 100));
      if (bin >= 0 && bin < kLogBins) ++counts[static_cast<size_t>(bin)];
    }
    benchmark::DoNotOptimize(counts);
  }
}
BENCHMARK(IntervalsNaive)->Name("100 000 spikes: log intervals/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

// --- direction

void DirectionOurs(benchmark::State& state) {
  const Recorded& r = Given();
  for (auto _ : state)
    benchmark::DoNotOptimize(
        DirectedSamples(r.Tracked.Direction, r.Tracked.Hold).TuningOf(SamplesOfSpikes(r.Tracked, r.Spikes)));
}
BENCHMARK(DirectionOurs)->Name("100 000 spikes: direction tuning/ours")->Unit(benchmark::kMillisecond)->MinTime(0.3);

/// A search for each spike.
void DirectionNaive(benchmark::State& state) {
  const Recorded& r = Given();
  for (auto _ : state) {
    std::vector<int64_t> samples;
    for (const int64_t spike : r.Spikes) {
      const auto after = std::upper_bound(r.Tracked.Time.begin(), r.Tracked.Time.end(), spike);
      samples.push_back(after - r.Tracked.Time.begin() - 1);
    }
    benchmark::DoNotOptimize(DirectedSamples(r.Tracked.Direction, r.Tracked.Hold).TuningOf(samples));
  }
}
BENCHMARK(DirectionNaive)->Name("100 000 spikes: direction tuning/naive")->Unit(benchmark::kMillisecond)->MinTime(0.3);

// --- from files to files

template <class Compute>
void FromFiles(benchmark::State& state, Compute compute) {
  const std::string cluster = WalkFile("cl-tmp"), time = WalkFile("ttmp"), positions = WalkFile("Pos.p");
  QuietWorld world;
  for (auto _ : state) compute(world, cluster, time, positions, WalkFile("tmp"));
}

const bool registered = [] {
  const auto add = [](const char* name, auto compute) {
    benchmark::RegisterBenchmark(name, [compute](benchmark::State& state) { FromFiles(state, compute); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(5);
  };
  using Text = const std::string&;
  add("100 000 spikes: rate map, from files to file/ours",
      [](World& world, Text cluster, Text time, Text positions, Text out) {
        ComputeRateMap(world, cluster, time, positions, out + ".rmap");
      });
  add("100 000 spikes: rate map and its autocorrelation, from files to file/ours",
      [](World& world, Text cluster, Text time, Text positions, Text out) {
        ComputeRateMap(world, cluster, time, positions, out + ".rmap");
        ComputeSpatialAutoCorr(world, out + ".rmap");
      });
  add("100 000 spikes: train autocorrelation, from files to file/ours",
      [](World& world, Text cluster, Text time, Text, Text out) {
        ComputeAutoCorr(world, cluster, time, out + ".acorr");
      });
  add("100 000 spikes: log intervals, from files to file/ours",
      [](World& world, Text cluster, Text time, Text, Text out) { ComputeLogISI(world, cluster, time, out + ".isi"); });
  add("100 000 spikes: direction tuning, from files to file/ours",
      [](World& world, Text cluster, Text time, Text positions, Text) {
        ComputeDirection(world, time, positions, cluster);
      });
  return true;
}();

}  // namespace

}  // namespace pallomir::bench
