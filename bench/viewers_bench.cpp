// From the files of an analysis to its window.

#include "gui/viewers/desktop_components.h"

#include <QtWidgets>
#include <functional>

#include "gui/controls/dialogs.h"
#include "gui/viewers/report_form.h"
#include "pallomir/results/compute_maps.h"
#include "support.h"
#include "walk.h"

namespace pallomir::bench {

namespace {

/// Runs a command of the components until its window is painted.
void ToWindow(benchmark::State& state, const std::function<void(Components&)>& command) {
  QuietWorld world;
  DesktopDialogs dialogs;
  QWidget parent;
  Session session;
  DesktopComponents components(session, world, dialogs, &parent, {});
  WalkFile("");  // written before timing starts
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

/// A report on one cluster with half of the benchmark's spikes.
Report LongReport() {
  const Positions& positions = WalkInBox().Samples;
  SpikeTimes spikes{{positions.Time.front(), positions.Time.back()}, {}, 0, 0};
  const int64_t count = Spikes() / 2, duration = spikes.Range.Last - spikes.Range.First;
  Report report;
  for (int64_t i = 0; i < count; ++i) {
    spikes.Times.push_back(spikes.Range.First + duration / count * i);
    report.Spikes.MaxHeight.push_back(static_cast<float>(100 + i * 7919 % 1000));
  }
  report.Spikes.Time = spikes.Times;
  report.Spikes.First = spikes.Range.First;
  report.Spikes.Last = spikes.Range.Last;
  report.Path = TrackWithin(positions, spikes.Range);
  report.SampleOf = SamplesOfSpikes(report.Path, spikes.Times);
  report.Rate = RateMapOf(positions, report.Path, spikes);
  report.Occupancy = OccupancyMapOf(positions, report.Path, spikes.Range);
  report.SpikePositions = PositionsOfSpikes(report.SampleOf, report.Path.X, report.Path.Y, {320, 240});
  return report;
}

/// Answers the save dialog.
class SavingDialogs : public DesktopDialogs {
 public:
  QString SaveFile(QWidget*, const FileDialogOptions&) override { return QString::fromStdString(Path); }
  const std::string Path = RecordingFolder() + "/report.pdf";
};

/// From the report's data until the sheet is painted, or from the menu command until its PDF is on the disk.
void ReportSheet(benchmark::State& state, bool save) {
  constexpr qint64 kLargestPdf = 3'000'000;
  const Report report = LongReport();
  QuietWorld world;
  SavingDialogs dialogs;
  for (auto _ : state) {
    state.PauseTiming();
    QPointer<ReportForm> form(new ReportForm(world, dialogs, nullptr, "TT1", 7));
    if (!save) state.ResumeTiming();
    form->Show(report, "Cluster 7");
    QApplication::processEvents();
    if (save) {
      state.ResumeTiming();
      form->findChild<QAction*>("mnuFileSave")->trigger();
      if (QFileInfo(QString::fromStdString(dialogs.Path)).size() > kLargestPdf)
        return state.SkipWithError("a large PDF");
    }
    state.PauseTiming();
    delete form;
    state.ResumeTiming();
  }
}

void ShowReport(benchmark::State& state) {
  ReportSheet(state, false);
}
BENCHMARK(ShowReport)
    ->Name("report of half the spikes to its window/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

void SaveReport(benchmark::State& state) {
  ReportSheet(state, true);
}
BENCHMARK(SaveReport)
    ->Name("report of half the spikes to a PDF/ours")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5);

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
