#include "tools/cut/measure_recording.h"

#include <algorithm>

#include "pallomir/analyses/commands.h"
#include "pallomir/files/platform.h"
#include "pallomir/results/measure_settings_file.h"
#include "pallomir/results/write_measures.h"
#include "tools/cut/open_cut.h"

namespace pallomir {

namespace {

/// From the first to the last spike that was loaded.
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

std::filesystem::path Or(const std::filesystem::path& given, const std::filesystem::path& usual) {
  return given.empty() ? usual : given;
}

}  // namespace

std::vector<std::string> MeasureRecording(const MeasureRequest& request, ProgressBar& bar) {
  bar.Begin("per cent", 100);
  const Progress progress([&bar](double share) {
    bar.Reached(static_cast<uint64_t>(100 * share));
    return true;
  });
  Session session;
  OpenCut(session, request.Recording, request.Boundaries, request.From, request.To, progress.Part(0, 0.1));
  const MeasureSources sources = {
      .SpikeFile = SpikeFilePath(session.File.Path),
      .PositionFile = Or(request.Positions, session.DataDirectory / ".." / "Pos.p"),
      .Time = LoadedSpan(session),
      .Settings = ReadMeasureSettings(session.DataDirectory),
      .Chance = request.Chance,
  };
  const MeasuredCut cut = MeasureClusters(session, sources, progress.Part(0.1, 1));
  const std::filesystem::path base = Or(request.Out, session.DataDirectory / "measures");
  WriteMeasures(cut, base);
  std::vector<std::string> lines = {"Measured " + std::to_string(cut.Clusters.size()) + " clusters: " + PathText(base) +
                                    ".csv and .json"};
  for (const std::string& why : {cut.WhyNoSpikeFile, cut.WhyNoPositions})
    if (!why.empty()) lines.push_back(why);
  return lines;
}

}  // namespace pallomir
