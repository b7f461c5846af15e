#include "gui/forms/export_measures.h"

#include <QCoreApplication>
#include <atomic>
#include <chrono>
#include <future>

#include "gui/controls/chosen_path.h"
#include "gui/controls/titles.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/analyses/cluster_reports.h"
#include "pallomir/analyses/measure_sources.h"
#include "pallomir/files/error.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/save_file.h"
#include "pallomir/results/write_measures.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

using Measuring = std::function<MeasuredCut(const Progress&)>;

/// Measures in a thread of its own, which shares nothing with the session: one step may take many seconds. If the user
/// stops it, the windows respond until it has ended.
MeasuredCut MeasureBeside(World& world, const Measuring& measure) {
  std::atomic<double> done = 0;
  std::atomic<bool> stop = false;
  const Progress progress([&](double share) {
    done = share;
    return !stop;
  });
  std::future<MeasuredCut> running = std::async(std::launch::async, measure, progress);
  const auto ended = [&] { return running.wait_for(std::chrono::milliseconds(20)) == std::future_status::ready; };
  WorkPace pace(world);
  try {
    do pace.Reached(done);
    while (!ended());
  } catch (const Interrupted&) {
    stop = true;
    while (!ended()) QCoreApplication::processEvents();
    throw;
  }
  return running.get();
}

}  // namespace

void ExportMeasures(Workbench& bench, QWidget* parent) {
  const Session& session = bench.TheSession();
  RequireDefinedClusters(session);
  const QString name = FileNameWithTetrode(TetrodeOf(session), {"Measures"});
  const QString path = bench.TheDialogs().SaveFile(
      parent, {"Export Measures", "Table (*.csv)|*.csv|JSON (*.json)|*.json", name + ".csv", "csv"});
  if (path.isEmpty()) return;
  bench.AskBeforeReplacing({PathOf(path)});
  QStringList told;
  bench.Work([&] {
    const std::filesystem::path positions = PathIn(session.DataDirectory, "..\\" + bench.Names.PosFile);
    const MeasuredCut cut = MeasureBeside(bench, PrepareMeasures(session, SourcesOf(session, positions, true)));
    SaveFile file(PathOf(path));
    file.Write(path.endsWith(".json", Qt::CaseInsensitive) ? MeasuresJson(cut) : MeasuresCsv(cut));
    file.Commit();
    told << QString("Clusters measured: %1.").arg(cut.Clusters.size());
    for (const std::string& why : {cut.WhyNoSpikeFile, cut.WhyNoPositions})
      if (!why.empty()) told << FromText(why);
  });
  bench.Say(told.join(' '));
}

}  // namespace pallomir
