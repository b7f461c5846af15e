#include "tools/sample/make_sample.h"

#include <algorithm>
#include <filesystem>

#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "tools/import/output_file.h"
#include "tools/sample/sample_files.h"

namespace pallomir {

namespace {

constexpr uint64_t kMinute = 60'000'000;    // microseconds
constexpr uint64_t kClosestSpikes = 4'000;  // smallest mean interval, microseconds
constexpr uint64_t kFullRates = 4'000;      // spikes per minute from which all of the cells' spikes are kept
constexpr const char* kDate = "2026-01-01 00:00:00";

enum Part : uint64_t { kWalk, kCellSpikes, kWaveforms, kVideo };

uint64_t Duration(const SampleRequest& request) {
  return std::max(kClosestSpikes * request.Spikes, kMinute * request.Minutes) / kWalkInterval * kWalkInterval;
}

void RefuseUsedFolder(const std::filesystem::path& folder) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(folder, error);
  if (!std::filesystem::exists(status)) return;
  const bool isEmpty = std::filesystem::is_empty(folder, error);
  if (error)
    throw CommandError(ErrorKind::Unreadable,
                       "The folder " + PathText(folder) + " cannot be read (" + error.message() + ").", folder);
  if (!isEmpty)
    throw CommandError(ErrorKind::NotWritten,
                       "The folder " + PathText(folder) +
                           " is not empty; nothing was written. Name a new folder, or use --replace: the sample's "
                           "files then replace those of the same names.",
                       folder);
}

}  // namespace

ImportReport MakeSample(const SampleRequest& request, ProgressBar& progress) {
  if (!request.Replace) RefuseUsedFolder(request.Folder);
  const std::filesystem::path raw = request.Folder / "raw";
  MakeFolder(raw);

  const uint64_t duration = Duration(request);
  const double share =
      std::min(1.0, static_cast<double>(request.Spikes) / static_cast<double>(kFullRates * request.Minutes));
  const Draws draws(request.Seed);
  const auto walk = WalkInBox(duration, draws.Part(kWalk));
  const auto cellSpikes = FireCells(walk, share, draws.Part(kCellSpikes));

  const ImportRequest import{.Spikes = raw / "TT1.Ntt",
                             .Video = raw / "VT1.Nvt",
                             .Events = raw / "Events.Nev",
                             .Out = request.Folder,
                             .PixelsPerCm = kSamplePixelsPerCm,
                             .Replace = request.Replace,
                             .Date = kDate};
  for (const std::filesystem::path& path : {import.Spikes, import.Video, import.Events}) RefuseOddTarget(path, {});
  WriteSampleSpikes(import.Spikes, cellSpikes, request.Spikes, duration, draws.Part(kWaveforms), progress);
  WriteSampleVideo(import.Video, walk, draws.Part(kVideo), progress);
  WriteSampleEvents(import.Events, duration);
  return ImportRecording(import, progress);
}

}  // namespace pallomir
