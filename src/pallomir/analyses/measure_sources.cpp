#include "pallomir/analyses/measure_sources.h"

#include "pallomir/analyses/commands.h"
#include "pallomir/results/cut_points.h"
#include "pallomir/results/measure_settings_file.h"

namespace pallomir {

MeasureSources SourcesOf(const Session& session, const std::filesystem::path& positionFile, bool chance) {
  return {
      .SpikeFile = SpikeFilePath(session.File.Path),
      .PositionFile = positionFile,
      .Time = LoadedSpan(session.Points),
      .Settings = ReadMeasureSettings(session.DataDirectory),
      .Chance = chance,
  };
}

}  // namespace pallomir
