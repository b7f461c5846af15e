// Analysing the current cluster: the analyses, notes, the centre of the maze.

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/forms/analyses_panel.h"
#include "gui/forms/cl_note_form.h"
#include "gui/forms/main_form.h"
#include "gui/forms/range_panel.h"
#include "gui/forms/waveforms_form.h"
#include "pallomir/analyses/center_file.h"
#include "pallomir/analyses/commands.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/output/cluster_files.h"

namespace pallomir {

namespace {

constexpr const char* kColour = "Color";
constexpr const char* kAnalysisStopped =
    "Stopped; cl-tmp and ttmp may be new. Let an analysis run to its end, or Write ClustFile writes only these.";
constexpr const char* kTimesMissing = "Enter in both record boxes fills in their times.";

std::string TagOf(const QWidget* button) {
  return button->property("Tag").toString().toStdString();
}

}  // namespace

void Main_Form::ConnectAnalyses() {
  OnClick(analyses_->cmdRateMap, &Main_Form::cmdRateMap_Click);
  OnClick(analyses_->cmdOccMap, &Main_Form::cmdOccMap_Click);
  OnClick(analyses_->cmd2DAutoCorr, &Main_Form::cmd2DAutoCorr_Click);
  OnClick(analyses_->cmdAutoCorr, &Main_Form::cmdAutoCorr_Click);
  OnClick(analyses_->cmdLogISI, &Main_Form::cmdLogISI_Click);
  OnClick(analyses_->cmdDirection, &Main_Form::cmdDirection_Click);
  OnClick(analyses_->cmdReport, &Main_Form::cmdReport_Click);
  OnClick(analyses_->cmdShowWaveforms, &Main_Form::cmdShowWaveforms_Click);
  OnClick(analyses_->cmdShowAvgWaveforms, &Main_Form::cmdShowAvgWaveforms_Click);
  OnClick(analyses_->cmdClNote, &Main_Form::cmdClNote_Click);
  OnClick(analyses_->cmdWriteCenterFile, &Main_Form::cmdWriteCenterFile_Click);
  connect(projections_.get(), &Projections::CenterChosen, this,
          [this](Vertex at) { Run([this, at] { Projections_CenterChosen(at); }); });
}

void Main_Form::Analyse(const std::function<void(const AnalysisTools&)>& analysis) {
  const AnalysisTools tools = {*this, *components_, [this] { WriteClusterFiles(session_, *this, ClusterTexts()); }};
  if (advice_.isEmpty() && PointsLoaded(session_) && !TimesSpanLoaded()) advice_ = kTimesMissing;
  stopped_ = kAnalysisStopped;
  Work([&] { analysis(tools); });
}

void Main_Form::AnalysePlaces(const std::function<void(const AnalysisTools&)>& analysis) {
  advice_ = MissingFileAdvice();
  Analyse(analysis);
}

QString Main_Form::MissingFileAdvice() const {
  if (!NextStep().isEmpty()) return {};
  if (!NumberIn(range_->txtStartTime) || !NumberIn(range_->txtEndTime)) return kTimesMissing;
  if (!FileUtility::FileExists(session_.DataDirectory + "\\..\\" + PositionName()))
    return "\"Position file\" names a file of the folder above the data; pallomir-cli import makes it.";
  if (!FileUtility::FileExists(SpikeFilePath(session_.File.Path)))
    return "The report needs the raw spike file beside the parameter file.";
  return {};
}

std::string Main_Form::PositionName() const {
  return analyses_->txtPosFile->text().toStdString();
}

void Main_Form::cmdRateMap_Click() {
  const std::string colours = TagOf(analyses_->cmdRateMap);
  AnalysePlaces([&](const AnalysisTools& tools) { ShowRateMap(session_, tools, PositionName(), colours); });
  // Gray applies to one map only.
  analyses_->cmdRateMap->setProperty("Tag", kColour);
}

void Main_Form::cmdOccMap_Click() {
  AnalysePlaces([this](const AnalysisTools& tools) { ShowOccupancyMap(session_, tools, PositionName()); });
}

void Main_Form::cmd2DAutoCorr_Click() {
  const std::string colours = TagOf(analyses_->cmd2DAutoCorr);
  AnalysePlaces([&](const AnalysisTools& tools) { ShowSpatialAutoCorr(session_, tools, PositionName(), colours); });
  // Resets the rate map's tag, not its own: gray stays for autocorrelations.
  analyses_->cmdRateMap->setProperty("Tag", kColour);
}

void Main_Form::cmdAutoCorr_Click() {
  Analyse([this](const AnalysisTools& tools) { ShowAutoCorr(session_, tools); });
}

void Main_Form::cmdLogISI_Click() {
  Analyse([this](const AnalysisTools& tools) { ShowLogISI(session_, tools); });
}

void Main_Form::cmdDirection_Click() {
  AnalysePlaces([this](const AnalysisTools& tools) { ShowDirection(session_, tools, PositionName()); });
}

void Main_Form::cmdReport_Click() {
  AnalysePlaces([this](const AnalysisTools& tools) { ShowReport(session_, tools, PositionName()); });
}

void Main_Form::cmdShowWaveforms_Click() {
  if (!waveforms_) {
    waveforms_ = new Waveforms(session_, *this, dialogs_, this);
    connect(waveforms_, &QDialog::finished, this, [this] { waveforms_ = nullptr; });
  }
  waveforms_->show();
  waveforms_->raise();
  waveforms_->activateWindow();
}

void Main_Form::cmdShowAvgWaveforms_Click() {
  if (NextStep().isEmpty()) advice_ = "The average waveform is in Analysis Report.";
  Analyse([this](const AnalysisTools& tools) { ShowAvgWaveforms(session_, tools); });
}

void Main_Form::RunTagged(QPushButton* button, const QString& tag) {
  button->setProperty("Tag", tag);
  button->click();
}

void Main_Form::cmdClNote_Click() {
  const bool load = !clNote_;
  if (load) {
    clNote_ = new ClNoteForm(session_, *this, dialogs_, this);
    NameTetrode(clNote_);
    connect(clNote_, &ClNoteForm::Unloaded, this, [this] { clNote_ = nullptr; });
  }
  clNote_->show();
  clNote_->raise();
  clNote_->activateWindow();
  if (load) clNote_->Form_Load();
}

void Main_Form::cmdWriteCenterFile_Click() {
  ArmCenter(true);
  ShowMessage("Move cursor to center of maze and left-click mouse to write Center File", {});
}

void Main_Form::ArmCenter(bool armed) {
  analyses_->cmdWriteCenterFile->setProperty("Tag", armed ? "1" : "0");
  projections_->ShowMode();
}

void Main_Form::Projections_CenterChosen(Vertex at) {
  const QScopeGuard served = qScopeGuard([this] { ArmCenter(false); });
  const QString name = analyses_->txtCenterFile->text();
  AskBeforeWriting({CenterFilePath(session_, name.toStdString())});
  WriteCenterFile(session_, *this, name.toStdString(), {at.X, at.Y});
  status_->setText(QString("The centre was written to %1, one folder above the data.").arg(name));
}

}  // namespace pallomir
