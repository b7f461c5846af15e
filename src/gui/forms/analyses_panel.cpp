#include "gui/forms/analyses_panel.h"

#include "gui/controls/event_hook.h"
#include "gui/forms/all_reports.h"
#include "gui/forms/export_measures.h"
#include "gui/viewers/desktop_components.h"
#include "gui/viewers/report_source.h"
#include "pallomir/analyses/center_file.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/output/cluster_files.h"

namespace pallomir {

namespace {

constexpr const char* kColour = "Color";
constexpr const char* kAnalysisStopped =
    "Stopped; cl-tmp and ttmp may have been replaced. Until an analysis runs to its end, Write ClustFile writes only "
    "these.";
constexpr const char* kTimesMissing = "Press Enter in both record boxes to fill in their times.";

std::string TagOf(const QWidget* button) {
  return button->property("Tag").toString().toStdString();
}

}  // namespace

AnalysesPanel::AnalysesPanel(Workbench& bench, Projections& projections, QWidget* parent)
    : QWidget(parent), bench_(bench), session_(bench.TheSession()), projections_(projections) {
  components_ = std::make_unique<DesktopComponents>(session_, bench, bench.TheDialogs(), parent, [this] {
    return std::make_unique<ReportSource>(session_, bench_, bench_.TheDialogs(), window(), session_.CurrentCluster);
  });
  MakeControls();
  MakeMenus();
  LayOut();
  Connect();
}

void AnalysesPanel::MakeControls() {
  cmdRateMap = MakeButton("cmdRateMap", "Rate Map", "Dispay Rate map.  RIght click for color options.");
  cmdOccMap = MakeButton("cmdOccMap", "Occ Map", "Display where the rat spent its time");
  cmd2DAutoCorr = MakeButton("cmd2DAutoCorr", "2D Spatial AutoCorr",
                             "Display 2-dimensional autocorrelation of rate map. Right click for color options.");
  for (QPushButton* map : {cmdRateMap, cmd2DAutoCorr}) map->setProperty("Tag", "Color");
  cmdAutoCorr = MakeButton("cmdAutoCorr", "AutoCorr", "Display spike train autocorrelation");
  cmdLogISI = MakeButton("cmdLogISI", "LogISI", "Display Log interspike interval plot");
  cmdDirection = MakeButton("cmdDirection", "Direction", "Display Head Direction plot");
  cmdReport = MakeButton("cmdReport", "Analysis Report", "Create and Display Analysis Report");
  cmdShowWaveforms = MakeButton("cmdShowWaveforms", "Waveforms", "Display individual waveforms");
  cmdShowAvgWaveforms =
      MakeButton("cmdShowAvgWaveforms", "Avg Waveforms", "Display average waveforms. Right click for options.");
  cmdShowAvgWaveforms->setProperty("Tag", "ShowAvgOnly");
  cmdClNote = MakeButton("cmdClNote", "Cluster Notes", "Disaply Cluster Quality Notes");
  txtPosFile = MakeTextBox("txtPosFile", "Position file", "The name of the rat position file should be entered here", 8,
                           "Pos.p");
  cmdWriteCenterFile = MakeButton("cmdWriteCenterFile", "Write CenterFile",
                                  "Write coordinates of center of maze to file (CenterCoords)");
  txtCenterFile = MakeTextBox("txtCenterFile", "Center file", "Name of the center file, one folder above the data", 10,
                              "CenterCoords");
}

void AnalysesPanel::MakeMenus() {
  // Each entry sets the button's tag and clicks it.
  const auto entry = [](QMenu* menu, const QString& name, const QString& caption, QPushButton* button,
                        const QString& tag) {
    connect(MakeEntry(menu, name, caption), &QAction::triggered, button, [button, tag] {
      button->setProperty("Tag", tag);
      button->click();
    });
  };
  mnuRateMap = MakeMenu(this, "mnuRateMap", "RateMap");
  entry(mnuRateMap, "mnuColor", "Color", cmdRateMap, "Color");
  entry(mnuRateMap, "mnuGrayScale", "Grayscale", cmdRateMap, "Gray");
  OpenByRightClick(cmdRateMap, mnuRateMap);
  mnu2DAutoCorr = MakeMenu(this, "mnu2DAutoCorr", "2DAutoCorr");
  entry(mnu2DAutoCorr, "mnu2DACorrColor", "Color", cmd2DAutoCorr, "Color");
  entry(mnu2DAutoCorr, "mnu2DACorrGrayscale", "Grayscale", cmd2DAutoCorr, "Gray");
  OpenByRightClick(cmd2DAutoCorr, mnu2DAutoCorr);
  QMenu* average = MakeMenu(this, "mnuAvgWaveforms", "AvgWaveforms");
  entry(average, "mnuShowAvgOnly", "Show Average Only", cmdShowAvgWaveforms, "ShowAvgOnly");
  entry(average, "mnuShowAllWaveforms", "Show All Waveforms", cmdShowAvgWaveforms, "ShowAllWaveforms");
  entry(average, "mnuShowColorAverages", "Show Color Averages", cmdShowAvgWaveforms, "ShowAvgOnlyColor");
  OpenByRightClick(cmdShowAvgWaveforms, average);
}

void AnalysesPanel::AddTo(QMenu* view) {
  view->addMenu(mnuRateMap)->setText("Rate map");
  view->addMenu(mnu2DAutoCorr)->setText("Spatial autocorrelation");
}

void AnalysesPanel::AddReportsTo(QMenu* file) {
  bench_.AddEntry(file, "mnuAllReports", "Re&ports of all clusters...",
                  "Write the Analysis Report of every cluster that has a boundary into one PDF document", [this] {
                    bench_.AdviseOnFailure(MissingFileAdvice());
                    SaveAllReports(bench_, window());
                  });
  bench_.AddEntry(file, "mnuExportMeasures", "Export &measures...",
                  "Measure every cluster that has a boundary, and write the table as CSV or JSON",
                  [this] { ExportMeasures(bench_, window()); });
}

void AnalysesPanel::LayOut() {
  auto* grid = new QGridLayout(this);
  grid->setSpacing(4);
  grid->setContentsMargins(6, 5, 6, 5);
  grid->addWidget(cmdRateMap, 0, 0);
  grid->addWidget(cmdOccMap, 0, 1);
  grid->addWidget(cmd2DAutoCorr, 0, 2);
  grid->addWidget(cmdDirection, 0, 3);
  grid->addWidget(cmdAutoCorr, 1, 0);
  grid->addWidget(cmdLogISI, 1, 1);
  grid->addWidget(cmdShowAvgWaveforms, 1, 2);
  grid->addWidget(cmdShowWaveforms, 1, 3);
  grid->addWidget(cmdReport, 2, 0, 1, 2);
  grid->addWidget(cmdClNote, 2, 2, 1, 2);
  grid->addLayout(Row({MakeLabel("Position file", txtPosFile), txtPosFile, cmdWriteCenterFile, txtCenterFile}), 3, 0, 1,
                  4);
  grid->setRowStretch(4, 1);
}

void AnalysesPanel::Connect() {
  bench_.OnClick(cmdRateMap, this, &AnalysesPanel::cmdRateMap_Click);
  bench_.OnClick(cmdOccMap, this, &AnalysesPanel::cmdOccMap_Click);
  bench_.OnClick(cmd2DAutoCorr, this, &AnalysesPanel::cmd2DAutoCorr_Click);
  bench_.OnClick(cmdAutoCorr, this, &AnalysesPanel::cmdAutoCorr_Click);
  bench_.OnClick(cmdLogISI, this, &AnalysesPanel::cmdLogISI_Click);
  bench_.OnClick(cmdDirection, this, &AnalysesPanel::cmdDirection_Click);
  bench_.OnClick(cmdReport, this, &AnalysesPanel::cmdReport_Click);
  bench_.OnClick(cmdShowWaveforms, this, &AnalysesPanel::cmdShowWaveforms_Click);
  bench_.OnClick(cmdShowAvgWaveforms, this, &AnalysesPanel::cmdShowAvgWaveforms_Click);
  bench_.OnClick(cmdClNote, this, &AnalysesPanel::cmdClNote_Click);
  bench_.OnClick(cmdWriteCenterFile, this, &AnalysesPanel::cmdWriteCenterFile_Click);
  bench_.On(&projections_, &Projections::CenterChosen, [this](Vertex at) { Projections_CenterChosen(at); });
  bench_.KeepText(txtPosFile, bench_.Names.PosFile);
  connect(&bench_, &Workbench::ColoursChanged, this, [this] {
    if (waveforms_) waveforms_->ShowColours();
    if (clNote_) clNote_->ShowColours();
  });
  connect(&bench_, &Workbench::ClusterChanged, this, [this] {
    if (clNote_) clNote_->ShowCurrentCluster();
  });
}

void AnalysesPanel::Analyse(const std::function<void(const AnalysisTools&)>& analysis) {
  const AnalysisTools tools = {bench_, *components_,
                               [this] { WriteClusterFiles(session_, bench_, bench_.ClusterTexts()); }};
  if (!bench_.HasAdvice() && PointsLoaded(session_) && !bench_.TimesSpanLoaded()) bench_.AdviseOnFailure(kTimesMissing);
  bench_.SayIfStopped(kAnalysisStopped);
  bench_.Work([&] { analysis(tools); });
}

void AnalysesPanel::AnalysePlaces(const std::function<void(const AnalysisTools&)>& analysis) {
  bench_.AdviseOnFailure(MissingFileAdvice());
  Analyse(analysis);
}

QString AnalysesPanel::MissingFileAdvice() const {
  if (!bench_.NextStep().isEmpty()) return {};
  if (!bench_.TimesTyped()) return kTimesMissing;
  if (!FileUtility::FileExists(PathIn(session_.DataDirectory, "..\\" + PositionName())))
    return "\"Position file\" names a file in the folder above the data; pallomir-cli import creates it.";
  if (!FileUtility::FileExists(SpikeFilePath(session_.File.Path)))
    return "The report needs the raw spike file in the folder of the parameter file.";
  return {};
}

void AnalysesPanel::cmdRateMap_Click() {
  const std::string colours = TagOf(cmdRateMap);
  AnalysePlaces([&](const AnalysisTools& tools) { ShowRateMap(session_, tools, PositionName(), colours); });
  // Gray applies to one map only.
  cmdRateMap->setProperty("Tag", kColour);
}

void AnalysesPanel::cmdOccMap_Click() {
  AnalysePlaces([this](const AnalysisTools& tools) { ShowOccupancyMap(session_, tools, PositionName()); });
}

void AnalysesPanel::cmd2DAutoCorr_Click() {
  const std::string colours = TagOf(cmd2DAutoCorr);
  AnalysePlaces([&](const AnalysisTools& tools) { ShowSpatialAutoCorr(session_, tools, PositionName(), colours); });
  // Resets the rate map's tag, not its own: gray stays for autocorrelations.
  cmdRateMap->setProperty("Tag", kColour);
}

void AnalysesPanel::cmdAutoCorr_Click() {
  Analyse([this](const AnalysisTools& tools) { ShowAutoCorr(session_, tools); });
}

void AnalysesPanel::cmdLogISI_Click() {
  Analyse([this](const AnalysisTools& tools) { ShowLogISI(session_, tools); });
}

void AnalysesPanel::cmdDirection_Click() {
  AnalysePlaces([this](const AnalysisTools& tools) { ShowDirection(session_, tools, PositionName()); });
}

void AnalysesPanel::cmdReport_Click() {
  AnalysePlaces([this](const AnalysisTools& tools) { ShowReport(session_, tools, PositionName()); });
}

void AnalysesPanel::cmdShowWaveforms_Click() {
  if (!waveforms_) {
    waveforms_ = new Waveforms(session_, bench_, bench_.TheDialogs(), window());
    connect(waveforms_, &QDialog::finished, this, [this] { waveforms_ = nullptr; });
  }
  ShowOnTop(waveforms_);
}

void AnalysesPanel::cmdShowAvgWaveforms_Click() {
  if (bench_.NextStep().isEmpty()) bench_.AdviseOnFailure("The average waveform is in Analysis Report.");
  Analyse([this](const AnalysisTools& tools) { ShowAvgWaveforms(session_, tools); });
}

void AnalysesPanel::cmdClNote_Click() {
  const bool load = !clNote_;
  if (load) {
    clNote_ = new ClNoteForm(session_, bench_, bench_.TheDialogs(), window());
    bench_.NameTetrode(clNote_);
    connect(clNote_, &ClNoteForm::Unloaded, this, [this] { clNote_ = nullptr; });
  }
  ShowOnTop(clNote_);
  if (load) clNote_->Form_Load();
}

void AnalysesPanel::cmdWriteCenterFile_Click() {
  ArmCentre(true);
  bench_.ShowMessage("Move cursor to center of maze and left-click mouse to write Center File", {});
}

void AnalysesPanel::ArmCentre(bool armed) {
  cmdWriteCenterFile->setProperty("Tag", armed ? "1" : "0");
  projections_.ArmCentre(armed);
}

bool AnalysesPanel::DisarmCentre() {
  if (cmdWriteCenterFile->property("Tag").toDouble() != 1) return false;
  ArmCentre(false);
  return true;
}

void AnalysesPanel::Projections_CenterChosen(Vertex at) {
  const QScopeGuard served = qScopeGuard([this] { ArmCentre(false); });
  const QString name = txtCenterFile->text();
  bench_.AskBeforeReplacing({CenterFilePath(session_, name.toStdString())});
  WriteCenterFile(session_, bench_, name.toStdString(), {at.X, at.Y});
  bench_.Say(QString("The centre was written to %1, one folder above the data.").arg(name));
}

}  // namespace pallomir
