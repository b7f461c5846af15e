#include "tools/sample/make_sample.h"

#include <algorithm>
#include <filesystem>

#include "files/error.h"
#include "files/platform.h"
#include "tools/sample/sample_files.h"

namespace pallomir {

namespace {

constexpr uint64_t kTwentyMinutes = 1'200'000'000;  // microseconds
constexpr uint64_t kFullRates = 80'000;             // spikes from which on every spike of the cells is kept
constexpr uint64_t kMostInTwentyMinutes = 300'000;  // spikes; 250 a second
constexpr const char* kDate = "2026-01-01 00:00:00";

enum Part : uint64_t { kWalk, kCellSpikes, kWaveforms, kVideo };

uint64_t Duration(uint64_t spikes) {
  const uint64_t exact = kTwentyMinutes / kMostInTwentyMinutes * std::max(spikes, kMostInTwentyMinutes);
  return exact / kWalkInterval * kWalkInterval;
}

}  // namespace

ImportReport MakeSample(const SampleRequest& request, Progress& progress) {
  const std::filesystem::path raw = PlatformPath(request.Folder) / "raw";
  std::error_code error;
  std::filesystem::create_directories(raw, error);
  if (error) throw CommandError("The folder " + PathText(raw) + " cannot be made (" + error.message() + ").");

  const uint64_t duration = Duration(request.Spikes);
  const double share = std::min(1.0, static_cast<double>(request.Spikes) / static_cast<double>(kFullRates));
  const Draws draws(request.Seed);
  const auto walk = WalkInBox(duration, draws.Part(kWalk));
  const auto cellSpikes = FireCells(walk, share, draws.Part(kCellSpikes));

  const ImportRequest import{.Spikes = PathText(raw / "TT1.Ntt"),
                             .Video = PathText(raw / "VT1.Nvt"),
                             .Events = PathText(raw / "Events.Nev"),
                             .Out = request.Folder,
                             .PixelsPerCm = kSamplePixelsPerCm,
                             .Date = kDate};
  WriteSampleSpikes(import.Spikes, cellSpikes, request.Spikes, duration, draws.Part(kWaveforms), progress);
  WriteSampleVideo(import.Video, walk, draws.Part(kVideo), progress);
  WriteSampleEvents(import.Events, duration);
  return ImportRecording(import, progress);
}

}  // namespace pallomir
