// From the files of an analysis to its window: 100,000 spikes and 36,000 positions, 20 minutes at 30 Hz.

#include "viewers/desktop_components.h"

#include <QtWidgets>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>

#include "controls/dialogs.h"
#include "support.h"

namespace pallomir::bench {

namespace {

constexpr int kShownSpikes = 100'000;
constexpr int kPositions = 36'000;
constexpr int64_t kFrame = 33'333;

/// A walk in a box of 1 m at 4 pixels a cm, and spikes at any time, in a folder that goes with the program.
struct AnalysisFiles {
  std::filesystem::path Folder =
      std::filesystem::temp_directory_path() / ("pallomir viewers " + std::to_string(std::random_device()()));

  AnalysisFiles() {
    std::filesystem::create_directories(Folder);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> turn(-0.5, 0.5);
    std::uniform_int_distribution<int64_t> gap(1, 2 * kPositions * kFrame / kShownSpikes);
    std::ofstream(Path("cl-tmp")) << "0\r\n" << kPositions * kFrame << "\r\n";
    std::ofstream spikes(Path("ttmp"));
    int64_t time = 0;
    for (int k = 0; k < kShownSpikes; ++k) spikes << std::min(time += gap(random), kPositions * kFrame) << "\r\n";
    std::ofstream positions(Path("Pos.p"));
    double x = 200, y = 200, angle = 0;
    for (int k = 0; k < kPositions; ++k) {
      angle += turn(random);
      x = std::clamp(x + 5 * std::cos(angle), 1.0, 400.0);
      y = std::clamp(y + 5 * std::sin(angle), 1.0, 400.0);
      const double degrees = angle * 180 / M_PI;
      positions << k * kFrame << "," << std::round(x) << "," << std::round(y) << ","
                << std::round(degrees - 360 * std::floor(degrees / 360)) << "\r\n";
    }
  }
  ~AnalysisFiles() {
    std::error_code error;
    std::filesystem::remove_all(Folder, error);
  }
  std::string Path(const char* name) const { return (Folder / name).string(); }
};

const AnalysisFiles& Files() {
  static const AnalysisFiles files;
  return files;
}

/// Runs a command of the components until its window is painted.
void ToWindow(benchmark::State& state, const std::function<void(Components&)>& command) {
  QuietWorld world;
  DesktopDialogs dialogs;
  QWidget parent;
  DesktopComponents components(world, dialogs, &parent, {});
  Files();
  for (auto _ : state) {
    command(components);
    QApplication::processEvents();
    state.PauseTiming();
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "ResultWindow" && !window->close()) state.SkipWithError("a window stays open");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    state.ResumeTiming();
  }
}

void ShowRate(Components& components) {
  const auto engine = components.MakeMapEngine();
  engine->ComputeRateMap(Files().Path("cl-tmp"), Files().Path("ttmp"), Files().Path("Pos.p"), Files().Path("tmp.rmap"));
  engine->ShowMap(Files().Path("tmp.rmap"), "Single", "Color", "Cluster 7");
}

void ShowOccupancy(Components& components) {
  const auto engine = components.MakeMapEngine();
  engine->ComputeOccupancyMap(Files().Path("cl-tmp"), Files().Path("Pos.p"), Files().Path("tmp.occ"));
  engine->ShowMap(Files().Path("tmp.occ"), "Single", "Color", "Occupancy");
}

void ShowSpatialAutoCorr(Components& components) {
  const auto engine = components.MakeMapEngine();
  engine->ComputeRateMap(Files().Path("cl-tmp"), Files().Path("ttmp"), Files().Path("Pos.p"), Files().Path("tmp.rmap"));
  engine->ComputeSpatialAutoCorr(Files().Path("tmp.rmap"));
  engine->ShowMap(Files().Path("tmp.2DAcorr"), "2DCorr", "Color", "Cluster 7");
}

void ShowAutoCorr(Components& components) {
  components.MakeTrainPlot()->PlotAutoCorr(Files().Path("cl-tmp"), Files().Path("ttmp"), Files().Path("tmp.acorr"),
                                           "Single", "Cluster 7");
}

void ShowLogISI(Components& components) {
  components.MakeTrainPlot()->PlotLogISI(Files().Path("cl-tmp"), Files().Path("ttmp"), Files().Path("tmp.isi"),
                                         "Single", "Cluster 7");
}

void ShowHeadDirection(Components& components) {
  const auto plot = components.MakeDirectionPlot();
  plot->ComputeDirection(Files().Path("ttmp"), Files().Path("Pos.p"), Files().Path("cl-tmp"));
  plot->ShowDirection(Files().Path("ttmp.dir"), "Single", "Cluster 7");
}

[[maybe_unused]] const bool added = [] {
  const std::pair<const char*, void (*)(Components&)> commands[] = {
      {"100 000 spikes: rate map to its window/ours", ShowRate},
      {"100 000 spikes: occupancy map to its window/ours", ShowOccupancy},
      {"100 000 spikes: spatial autocorrelation to its window/ours", ShowSpatialAutoCorr},
      {"100 000 spikes: train autocorrelation to its window/ours", ShowAutoCorr},
      {"100 000 spikes: log ISI to its window/ours", ShowLogISI},
      {"100 000 spikes: head direction to its window/ours", ShowHeadDirection},
  };
  for (const auto& [name, command] : commands)
    benchmark::RegisterBenchmark(name, ToWindow, command)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(5);
  return true;
}();

}  // namespace

}  // namespace pallomir::bench
