#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "pallomir/session/quiet_world.h"
#include "pallomir/session/session.h"

namespace pallomir::bench {

/// Spikes in the benchmark recording: a million, or the value of PALLOMIR_BENCH_SPIKES.
int64_t Spikes();

/// Whether the recording's rows have values in every column, as with 32 channels, or only those of four channels (a
/// tetrode), with the others zero.
enum class Channels { Tetrode, All };

/// A folder with a recording of Spikes() rows (four Gaussian clouds on four channels), created on first use and removed
/// when the program ends. Its path ends in ".../TT1".
const std::string& RecordingFolder(Channels channels = Channels::Tetrode);

/// The parameter file in it.
std::string ParameterFilePath(Channels channels = Channels::Tetrode);

/// A spike file for it; the spikes of one record in kOneIn are higher than all others.
const std::string& SpikeFilePath();
inline constexpr int kOneIn = 50;

/// The stamp of the first record; each next one is 1 ms later.
inline constexpr int64_t kFirstStamp = 1'000'000'000;

/// A session with the whole recording loaded, shared by the benchmarks.
Session& LoadedSession();

/// A session with the recording open but nothing loaded.
Session OpenSession(Channels channels = Channels::Tetrode);

/// A polygon of `vertices` corners around the centre of the first cloud, on MPeak-1 and MPeak-2; a star if `star`.
Boundary Polygon(int vertices, bool star = false);

}  // namespace pallomir::bench
