// The boundaries file, the defaults, the axis scales, autosave and leaving the program.

#include <QtWidgets>

#include "gui/controls/chosen_path.h"
#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/analyses_panel.h"
#include "gui/forms/axes_panel.h"
#include "gui/forms/choose_cluster_form.h"
#include "gui/forms/files_panel.h"
#include "gui/forms/main_form.h"
#include "gui/forms/range_panel.h"
#include "pallomir/clusters/autosave.h"
#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/clusters/undo.h"
#include "pallomir/files/error.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/set_aside.h"
#include "pallomir/files/write_target.h"
#include "pallomir/output/cluster_files.h"
#include "pallomir/session/axis_scale_file.h"
#include "pallomir/session/defaults_file.h"

namespace pallomir {

namespace {

/// Interval of the autosave check in milliseconds: the longest that the timer was designed for.
constexpr int kAutosaveCheck = 65535;

float SecondsSinceMidnight() {
  return static_cast<float>(QTime(0, 0).msecsTo(QTime::currentTime())) / 1000.0F;
}

}  // namespace

void Main_Form::ConnectFiles() {
  OnClick(files_->cmdReadCBFile, &Main_Form::cmdReadCBFile_Click);
  OnClick(files_->cmdWriteCBFile, &Main_Form::cmdWriteCBFile_Click);
  OnClick(files_->cmdSaveDefaults, &Main_Form::cmdSaveDefaults_Click);
  OnClick(files_->cmdWriteClustFile, &Main_Form::cmdWriteClustFile_Click);
  connect(files_->txtClustFile, &QLineEdit::returnPressed, files_->cmdWriteClustFile, &QPushButton::click);
  OnClick(files_->cmdExit, &Main_Form::cmdExit_Click);
  OnClick(axes_->cmdRestoreAxes, &Main_Form::mnuRestoreAxesScaleFromFile_Click);
  connect(files_->txtCBFileRead, &QLineEdit::returnPressed, files_->cmdReadCBFile, &QPushButton::click);
  connect(files_->txtCBFileWrite, &QLineEdit::returnPressed, files_->cmdWriteCBFile, &QPushButton::click);
  Timer1_ = new QTimer(this);
  Timer1_->setObjectName("Timer1");
  connect(Timer1_, &QTimer::timeout, this, &Main_Form::Timer1_Timer);
}

std::string Main_Form::ReadPath() const {
  return BoundariesFilePath(session_, files_->txtCBFileRead->text().toStdString());
}

void Main_Form::cmdWriteCBFile_Click() {
  if (files_->txtCBFileWrite->text().trimmed().isEmpty())
    throw CommandError("Type a name for the boundaries file first.");
  const std::string path = BoundariesFilePath(session_, files_->txtCBFileWrite->text().toStdString());
  AskBeforeWriting({path}, files_->txtCBFileWrite);
  WriteBoundaries(path);
  if (std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true) == 0)
    status_->setText("No cluster has a boundary, and none was written. The earlier file stands beside it as .bak.");
}

void Main_Form::WriteBoundaries(const std::string& path) {
  if (!knownCuts_.contains(path))
    if (const auto kept = KeepUnreadCut(session_, path))
      AppendMessage("An earlier cut that nobody has read is kept under the name " + *kept);
  WriteCBFile(session_, *this, path);
  knownCuts_.insert(path);
}

void Main_Form::AskBeforeWriting(const std::vector<std::string>& paths, const QLineEdit* box) {
  const auto brought = fromDefaults_.find(box);
  for (const std::string& path : paths) {
    const QString outside = FromText(PlaceOutside(session_.DataDirectory, path));
    if (brought == fromDefaults_.end() || brought->second != box->text() || outside.isEmpty()) continue;
    Ask("The file Defaults names a place outside of the data folder:\n\n" + outside + "\n\nWrite there?");
    fromDefaults_.erase(brought);
    break;
  }
  QStringList shut;
  for (const std::string& path : paths)
    if (IsWriteProtected(path)) shut << FromText(path);
  if (!shut.isEmpty()) Ask("Write-protected:\n\n" + shut.join('\n') + "\n\nReplace all the same?");
}

void Main_Form::Ask(const QString& question) {
  if (!dialogs_.Confirm(this, question)) throw Interrupted();
}

QString Main_Form::BoundariesAdvice() const {
  QStringList names = QDir().entryList({"cbfile.*.txt"}, QDir::Files);
  for (QString& name : names) name.chop(4);
  return names.isEmpty() ? "There is no boundaries file (cbfile) in this folder yet."
                         : "Boundaries files here: " + names.join(", ");
}

void Main_Form::cmdReadCBFile_Click() {
  const std::string path = ReadPath();
  if (session_.DefinitionCounter != 0) SaveUndoSnapshot(session_);
  if (session_.FirstLoad) throw CommandError("Need to Load Points first");
  advice_ = BoundariesAdvice();
  if (!FileUtility::FileExists(path)) throw CommandError("CBFile does not exist", "ERROR");
  ShowRead([&](const Progress& progress) {
    const bool read = ReadCBFile(session_, path, progress);
    if (read) knownCuts_.insert(path);
    return read;
  });
}

void Main_Form::mnuReadSelectedClusters_Click() {
  if (session_.DefinitionCounter != 0) SaveUndoSnapshot(session_);
  advice_ = BoundariesAdvice();
  if (!FileUtility::FileExists(ReadPath())) throw CommandError("CBFile does not exist", "ERROR");
  if (!chooseClusters_) {
    chooseClusters_ = new ChooseClusterForm(this);
    NameTetrode(chooseClusters_);
    connect(chooseClusters_, &ChooseClusterForm::Go, this, [this] { Run([this] { cmdGo_Click(); }); });
  }
  chooseClusters_->show();
  chooseClusters_->raise();
}

void Main_Form::cmdGo_Click() {
  chooseClusters_->hide();
  ShowRead([this](const Progress& progress) {
    return ReadSelectedClusters(session_, ReadPath(), chooseClusters_->Chosen(), progress);
  });
}

void Main_Form::ShowRead(const std::function<bool(const Progress&)>& read) {
  QScopeGuard shown = qScopeGuard([this] {
    projections_->GiveUpPolygon();
    RefreshClusters();
  });
  advice_ =
      "Clusters with a boundary from that file are not applied to the points yet. Undo brings the earlier cut back.";
  bool understood = false;
  try {
    ChangeCut([&](const Progress& progress) { understood = read(progress); });
  } catch (const Interrupted&) {
    shown.dismiss();  // an open polygon stays open
    throw;
  }
  if (understood) {
    Redraw();
    const auto clusters = std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true);
    status_->setText(QString("Read; clusters with boundaries now: %1.").arg(clusters));
    return;
  }
  status_->setText(
      "There is no boundaries file of that name to read; the clusters were deleted. Undo brings them back.");
}

ClusterFileTexts Main_Form::ClusterTexts() const {
  return {files_->txtClustFile->text().toStdString(), range_->txtStartTime->text().toStdString(),
          range_->txtEndTime->text().toStdString()};
}

void Main_Form::cmdWriteClustFile_Click() {
  if (!NumberIn(range_->txtStartTime) || !NumberIn(range_->txtEndTime))
    advice_ = "Enter in both record boxes fills in their times.";
  if (!session_.TemporaryMode)
    AskBeforeWriting(ClusterFilePaths(session_, ClusterTexts().ClustFile), files_->txtClustFile);
  Work([&] { WriteClusterFiles(session_, *this, ClusterTexts()); });
  if (!PointsLoaded(session_))
    status_->setText(QString(session_.Points.Rows() == 0
                                 ? "No points are loaded, and no spikes were written."
                                 : "The range was given up: one spike was written, the first one of it.") +
                     " Earlier files of clusters are kept as OLD; that of the unclassified spikes was replaced.");
  if (session_.TemporaryMode)
    status_->setText("Only the files of the analyses were written: one ended early. Let one run to its end first.");
}

void Main_Form::Timer1_Timer() {
  const float now = SecondsSinceMidnight();
  if (working_ || folder_.Taken() || !AutosaveDue(now, lastAutosave_)) return;
  lastAutosave_ = now;
  try {
    Autosave();
    AppendMessage("Autosaved CBFile");
    autosaveFailed_ = false;
  } catch (const std::exception& error) {
    if (!autosaveFailed_) AppendMessage("Autosave failed: " + SentenceOf(error));
    autosaveFailed_ = true;
  }
}

void Main_Form::Autosave() {
  const std::string path = AutosavePath(session_);
  // The user may be away, so do not ask.
  if (IsWriteProtected(path)) SetAside(path);
  WriteBoundaries(path);
}

Defaults Main_Form::PresentDefaults() const {
  Defaults defaults;
  defaults.CBFileWrite = files_->txtCBFileWrite->text().toStdString();
  defaults.CBFileRead = files_->txtCBFileRead->text().toStdString();
  defaults.ClustFile = files_->txtClustFile->text().toStdString();
  defaults.ParamFile = range_->txtParamFile->text().toStdString();
  defaults.PosFile = analyses_->txtPosFile->text().toStdString();
  defaults.Epochs = EpochItems();
  return defaults;
}

void Main_Form::ReadDefaultsFiles() {
  Defaults defaults = PresentDefaults();
  for (const char* place : {"\\..\\Defaults", "\\Defaults"})
    Run([&] {
      const std::string path = session_.DataDirectory + place;
      if (!ReadDefaults(session_, defaults, path))
        AppendMessage(path + " has no header: nothing was taken from it, and the list of epochs is empty");
    });
  const Defaults own = PresentDefaults();
  files_->txtCBFileWrite->setText(QString::fromStdString(defaults.CBFileWrite));
  files_->txtCBFileRead->setText(QString::fromStdString(defaults.CBFileRead));
  files_->txtClustFile->setText(QString::fromStdString(defaults.ClustFile));
  range_->txtParamFile->setText(QString::fromStdString(defaults.ParamFile));
  analyses_->txtPosFile->setText(QString::fromStdString(defaults.PosFile));
  if (defaults.CBFileWrite != own.CBFileWrite) fromDefaults_[files_->txtCBFileWrite] = files_->txtCBFileWrite->text();
  if (defaults.ClustFile != own.ClustFile) fromDefaults_[files_->txtClustFile] = files_->txtClustFile->text();
  QStringList epochs;
  for (const std::string& epoch : defaults.Epochs) epochs << QString::fromStdString(epoch);
  range_->SetEpochs(epochs);
}

void Main_Form::cmdSaveDefaults_Click() {
  const QString path = dialogs_.SaveFile(
      this, {"Save Defaults File", "Defaults file (Defaults)|Defaults|All files (*.*)|*.*", "Defaults", {}, false});
  if (path.isEmpty()) return;
  const std::string native = PathOf(path);
  if (FileUtility::FileExists(native) && !IsDefaultsFile(native))
    Ask(FromText(native) + " is not a Defaults file.\n\nReplace it all the same?");
  AskBeforeWriting({native});
  WriteDefaults(session_, PresentDefaults(), native);
}

void Main_Form::mnuWriteAxesScaleFile_Click() {
  AskBeforeWriting({AxesScaleFilePath(session_)});
  WriteAxesScaleFile(session_);
  status_->setText("The axis scales were written.");
}

void Main_Form::mnuRestoreAxesScaleFromFile_Click() {
  advice_ = "Exit, or a right click on Axis Scale, writes the axis scales.";
  ReadAxesScaleFile(session_);
  Redraw();
}

void Main_Form::StartAutosave() {
  lastAutosave_ = SecondsSinceMidnight();
  Timer1_->start(kAutosaveCheck);
  Run([this] { TellNewestCut(); });
}

void Main_Form::TellNewestCut() {
  if (const std::vector<std::string> kept = KeptCuts(session_); !kept.empty())
    AppendMessage("Exit copies and autosaves that were never read are kept here: " + std::to_string(kept.size()) +
                  ", the last as " + kept.back() + "; delete what is not needed");
  const std::string named = files_->txtCBFileRead->text().toStdString();
  const auto newest = NewerCutThan(session_, named);
  if (!newest) return;
  AppendMessage("The newest cut here is " + newest->Name + ", written " + newest->Written + ", and not " + named +
                ". To read it: load points, then Read CBFile with the name " + newest->Name);
  status_->setText("The newest cut here is " + FromText(newest->Name) + ", and not " + FromText(named) + ".");
}

void Main_Form::SaveBeforeTheEnd() {
  if (session_.DefinitionCounter == 0 || folder_.Taken()) return;
  try {
    Autosave();
  } catch (const std::exception& error) {
    ShowMessage(SentenceOf(error), "ERROR");
  }
}

void Main_Form::cmdExit_Click() {
  if (CloseForms() && SaveOnExit()) EndProgram();
}

bool Main_Form::SaveOnExit() {
  if (folder_.Taken())
    return std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true) == 0 ||
           dialogs_.Confirm(this, FromText("The folder belongs to another program (" + folder_.Holder() +
                                           "), so no exit copy of your cut is written. Write CBFile saves it under a "
                                           "name of its own.\n\nLeave now?"));
  files_->txtCBFileWrite->setText("cbfile.exit");
  try {
    cmdWriteCBFile_Click();
    mnuWriteAxesScaleFile_Click();
  } catch (const Interrupted&) {
    return dialogs_.Confirm(this, "Not everything was saved.\n\nLeave all the same?");
  } catch (const std::exception& error) {
    // Do not lose anything without the user's consent.
    return dialogs_.Confirm(this, QString::fromStdString(SentenceOf(error)) + "\n\nLeave all the same?");
  }
  return true;
}

}  // namespace pallomir
