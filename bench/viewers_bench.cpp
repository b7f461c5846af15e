// From the files of an analysis to its window.

#include "viewers/desktop_components.h"

#include <QtWidgets>
#include <functional>

#include "controls/dialogs.h"
#include "support.h"
#include "walk.h"

namespace pallomir::bench {

namespace {

/// Runs a command of the components until its window is painted.
void ToWindow(benchmark::State& state, const std::function<void(Components&)>& command) {
  QuietWorld world;
  DesktopDialogs dialogs;
  QWidget parent;
  DesktopComponents components(world, dialogs, &parent, {});
  WalkFile("");  // written before the clock runs
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
  engine->ComputeRateMap(WalkFile("cl-tmp"), WalkFile("ttmp"), WalkFile("Pos.p"), WalkFile("tmp.rmap"));
  engine->ShowMap(WalkFile("tmp.rmap"), "Single", "Color", "Cluster 7");
}

void ShowOccupancy(Components& components) {
  const auto engine = components.MakeMapEngine();
  engine->ComputeOccupancyMap(WalkFile("cl-tmp"), WalkFile("Pos.p"), WalkFile("tmp.occ"));
  engine->ShowMap(WalkFile("tmp.occ"), "Single", "Color", "Occupancy");
}

void ShowSpatialAutoCorr(Components& components) {
  const auto engine = components.MakeMapEngine();
  engine->ComputeRateMap(WalkFile("cl-tmp"), WalkFile("ttmp"), WalkFile("Pos.p"), WalkFile("tmp.rmap"));
  engine->ComputeSpatialAutoCorr(WalkFile("tmp.rmap"));
  engine->ShowMap(WalkFile("tmp.2DAcorr"), "2DCorr", "Color", "Cluster 7");
}

void ShowAutoCorr(Components& components) {
  components.MakeTrainPlot()->PlotAutoCorr(WalkFile("cl-tmp"), WalkFile("ttmp"), WalkFile("tmp.acorr"), "Single",
                                           "Cluster 7");
}

void ShowLogISI(Components& components) {
  components.MakeTrainPlot()->PlotLogISI(WalkFile("cl-tmp"), WalkFile("ttmp"), WalkFile("tmp.isi"), "Single",
                                         "Cluster 7");
}

void ShowHeadDirection(Components& components) {
  const auto plot = components.MakeDirectionPlot();
  plot->ComputeDirection(WalkFile("ttmp"), WalkFile("Pos.p"), WalkFile("cl-tmp"));
  plot->ShowDirection(WalkFile("ttmp.dir"), "Single", "Cluster 7");
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
