#include "pallomir/analyses/measure_sources.h"

#include <algorithm>

#include "pallomir/analyses/commands.h"
#include "pallomir/results/measure_settings_file.h"

namespace pallomir {

namespace {

LoadedTime LoadedSpan(const Session& session) {
  const auto stamps = session.Points.Stamps().first(session.Points.Rows());
  TimeRange range{kFarthestStamp, -kFarthestStamp};
  for (const uint64_t stamp : stamps) {
    if (stamp > static_cast<uint64_t>(kFarthestStamp)) continue;
    range.First = std::min(range.First, static_cast<int64_t>(stamp));
    range.Last = std::max(range.Last, static_cast<int64_t>(stamp));
  }
  return LoadedTime({range});
}

}  // namespace

MeasureSources SourcesOf(const Session& session, const std::filesystem::path& positionFile, bool chance) {
  return {
      .SpikeFile = SpikeFilePath(session.File.Path),
      .PositionFile = positionFile,
      .Time = LoadedSpan(session),
      .Settings = ReadMeasureSettings(session.DataDirectory),
      .Chance = chance,
  };
}

}  // namespace pallomir
