// From the parameter file to the point table.

#include <fstream>
#include <memory>

#include "files/bytes.h"
#include "files/file_reader.h"
#include "files/parameter_header.h"
#include "files/platform.h"
#include "session/point_reader.h"
#include "support.h"

namespace pallomir::bench {

namespace {

void LoadOurs(benchmark::State& state) {
  Session session = OpenSession();
  QuietWorld world;
  for (auto _ : state) {
    session.Points = PointTable();
    session.FirstLoad = true;
    ReadPoints(session, world, 0, static_cast<int32_t>(Spikes() - 1));
  }
  ReportPerPoint(state);
}
BENCHMARK(LoadOurs)
    ->Name("load rows/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

/// Value by value into records, as a straightforward program reads them.
void LoadNaive(benchmark::State& state) {
  const auto path = PlatformPath(ParameterFilePath());
  for (auto _ : state) {
    std::ifstream file(path, std::ios::binary);
    auto records = std::make_unique<PointRecord[]>(static_cast<size_t>(Spikes()) + 1);
    for (int64_t r = 0; r < Spikes(); ++r) {
      file.read(reinterpret_cast<char*>(&records[r].Stamp), 8);
      for (int p = 0; p < kParameters; ++p) file.read(reinterpret_cast<char*>(&records[r].Parameters[p]), 4);
    }
    benchmark::DoNotOptimize(records.get());
  }
  ReportPerPoint(state);
}
BENCHMARK(LoadNaive)
    ->Name("load rows/naive")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(3);

/// Nothing but large reads of the same bytes.
void LoadFloor(benchmark::State& state) {
  std::vector<unsigned char> buffer(1 << 20);
  for (auto _ : state) {
    FileReader file(ParameterFilePath());
    for (uint64_t offset = 0; offset < file.Length();) offset += file.ReadUpTo(offset, buffer.data(), buffer.size());
    benchmark::DoNotOptimize(buffer.data());
  }
  ReportPerPoint(state);
}
BENCHMARK(LoadFloor)
    ->Name("load rows/floor")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

}  // namespace

}  // namespace pallomir::bench
