#include "by_numpy.h"

#include <cstdlib>

#include "pallomir/files/file_reader.h"

namespace pallomir::bench {

void ByNumpy(benchmark::State& state, const std::string& name) {
  const auto quoted = [](const std::string& text) { return '"' + text + '"'; };
  const std::string folder = RecordingFolder(), out = folder + "/seconds";
  const std::string command = quoted(PALLOMIR_PYTHON) + " " + quoted(PALLOMIR_BENCH_SOURCE "/measures_numpy.py") + " " +
                              quoted(folder) + " " + name + " > " + quoted(out);
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) {
      state.SkipWithError("python3 cannot run measures_numpy.py; are numpy and scipy there?");
      break;
    }
    state.SetIterationTime(std::stod(ReadText(out)));
  }
}

void Once(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();
}

}  // namespace pallomir::bench
