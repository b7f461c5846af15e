#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "pallomir/files/save_file.h"
#include "support.h"

namespace pallomir::bench {

/// Puts an array into the recording's folder, for measures_numpy.py.
template <class Value>
void PutArray(const std::string& name, const std::vector<Value>& values) {
  SaveFile file(RecordingFolder() + "/" + name);
  file.Write(values.data(), values.size() * sizeof(Value));
  file.Commit();
}

/// Has measures_numpy.py do `name` with the arrays that were put there: one iteration, of the time that it reports.
void ByNumpy(benchmark::State& state, const std::string& name);

/// The settings of such a benchmark.
void Once(benchmark::internal::Benchmark* benchmark);

}  // namespace pallomir::bench
