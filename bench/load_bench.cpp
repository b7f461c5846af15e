// From the parameter file to the point table.

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/platform.h"
#include "pallomir/session/point_reader.h"
#include "support.h"

namespace pallomir::bench {

namespace {

void LoadOurs(benchmark::State& state, Channels channels) {
  Session session = OpenSession(channels);
  QuietWorld world;
  for (auto _ : state) {
    session.Points = PointTable();
    session.FirstLoad = true;
    ReadPoints(session, world, 0, static_cast<int32_t>(Spikes() - 1));
  }
}

/// Value by value into records, as a straightforward program reads them.
void LoadNaive(benchmark::State& state, Channels channels) {
  const auto path = PlatformPath(ParameterFilePath(channels));
  for (auto _ : state) {
    std::ifstream file(path, std::ios::binary);
    auto records = std::make_unique<PointRecord[]>(static_cast<size_t>(Spikes()) + 1);
    for (int64_t r = 0; r < Spikes(); ++r) {
      file.read(reinterpret_cast<char*>(&records[r].Stamp), 8);
      for (int p = 0; p < kParameters; ++p) file.read(reinterpret_cast<char*>(&records[r].Parameters[p]), 4);
    }
    benchmark::DoNotOptimize(records.get());
  }
}

/// Only large reads of the same bytes.
void LoadFloor(benchmark::State& state, Channels channels) {
  std::vector<unsigned char> buffer(1 << 20);
  for (auto _ : state) {
    FileReader file(ParameterFilePath(channels));
    for (uint64_t offset = 0; offset < file.Length();) offset += file.ReadUpTo(offset, buffer.data(), buffer.size());
    benchmark::DoNotOptimize(buffer.data());
  }
}

/// The time the system takes to provide the memory of a table of 32 channels for the first time: no load can avoid it.
void FreshMemory(benchmark::State& state) {
  const size_t bytes = static_cast<size_t>(Spikes()) * kParameters * sizeof(float);
  for (auto _ : state) {
    const LargeMemory memory = AllocateLargeMemory(bytes);
    for (size_t at = 0; at < bytes; at += 4096) static_cast<char*>(memory.get())[at] = 1;
  }
}
BENCHMARK(FreshMemory)
    ->Name("memory for 32 channels, touched once/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(7);

const bool registered = [] {
  const auto add = [](const char* name, auto function, Channels channels, int repetitions) {
    benchmark::RegisterBenchmark(name, function, channels)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(repetitions);
  };
  for (const Channels channels : {Channels::Tetrode, Channels::All}) {
    const std::string path = channels == Channels::Tetrode ? "load rows of a tetrode" : "load rows of 32 channels";
    add((path + "/floor").c_str(), LoadFloor, channels, 5);
    add((path + "/ours").c_str(), LoadOurs, channels, 7);
    add((path + "/naive").c_str(), LoadNaive, channels, 2);
  }
  return true;
}();

}  // namespace

}  // namespace pallomir::bench
