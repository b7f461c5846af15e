// Times and records: the commands that read the stamps of the whole file.

#include <fstream>

#include "pallomir/files/parameter_header.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/timestamp.h"
#include "pallomir/timesel/epochs.h"
#include "pallomir/timesel/record_range.h"
#include "support.h"

namespace pallomir::bench {

namespace {

double LastStamp() {
  const Session session = OpenSession();
  return *TimeOfRecord(session, static_cast<double>(Spikes() - 1));
}

/// Thirty consecutive epochs of equal length.
EpochTable Thirty() {
  EpochTable table;
  const double length = LastStamp() / kEpochs;
  for (size_t row = 0; row < kEpochs; ++row)
    table[row] = {"part", std::to_string(length * static_cast<double>(row)),
                  std::to_string(length * static_cast<double>(row + 1))};
  return table;
}

void FindOurs(benchmark::State& state) {
  Session session = OpenSession();
  QuietWorld world;
  const EpochTable table = Thirty();
  for (auto _ : state) FindEventIDs(session, world, table);
}
BENCHMARK(FindOurs)
    ->Name("records of thirty epochs/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

/// Every row from record 0, with each stamp read separately and the texts converted each time.
void FindNaive(benchmark::State& state) {
  const EpochTable table = Thirty();
  const Session session = OpenSession();
  for (auto _ : state) {
    std::ifstream file(session.File.Path, std::ios::binary);
    for (const Epoch& epoch : table) {
      bool started = false;
      for (int64_t n = 0; n < session.File.RecordCount; ++n) {
        unsigned char bytes[8];
        file.seekg(session.File.HeaderLength + n * static_cast<int64_t>(kRowBytes));
        file.read(reinterpret_cast<char*>(bytes), sizeof bytes);
        const double time = TimestampFromBytes(bytes);
        if (!started)
          started = time >= std::stod(epoch.Start);
        else if (time > std::stod(epoch.End))
          break;
      }
    }
  }
}
BENCHMARK(FindNaive)
    ->Name("records of thirty epochs/naive")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1);

void RangeBox(benchmark::State& state) {
  const Session session = OpenSession();
  QuietWorld world;
  const double last = LastStamp();
  for (auto _ : state) benchmark::DoNotOptimize(RecordAtEnd(session, world, last));
}
BENCHMARK(RangeBox)
    ->Name("double-click of the end time, to the last spike/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

}  // namespace

}  // namespace pallomir::bench
