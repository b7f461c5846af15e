#include "tools/cut/measure_recording.h"

#include "pallomir/analyses/measure_sources.h"
#include "pallomir/files/platform.h"
#include "pallomir/results/write_measures.h"
#include "tools/cut/open_cut.h"

namespace pallomir {

namespace {

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
  const MeasureSources sources =
      SourcesOf(session, Or(request.Positions, session.DataDirectory / ".." / "Pos.p"), request.Chance);
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
