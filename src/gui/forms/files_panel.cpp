#include "gui/forms/files_panel.h"

#include "gui/controls/chosen_path.h"
#include "gui/controls/event_hook.h"
#include "gui/controls/run_command.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/clusters/undo.h"
#include "pallomir/files/error.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/platform.h"
#include "pallomir/files/write_target.h"
#include "pallomir/output/cluster_files.h"

namespace pallomir {

namespace {

/// Names the boundaries files in the data directory, for a user who asked for another.
QString BoundariesAdvice() {
  QStringList names = QDir().entryList({"cbfile.*.txt"}, QDir::Files);
  for (QString& name : names) name.chop(4);
  return names.isEmpty() ? "There is no boundaries file (cbfile) in this folder yet."
                         : "Boundaries files here: " + names.join(", ");
}

void RequireCBFile(const std::filesystem::path& path) {
  if (FileUtility::FileExists(path)) return;
  UnderErrorTitle([&] { throw CommandError(ErrorKind::Missing, "CBFile does not exist", path); });
}

}  // namespace

FilesPanel::FilesPanel(Workbench& bench, Projections& projections, CutKeeper& keeper, QWidget* parent)
    : QWidget(parent), bench_(bench), session_(bench.TheSession()), projections_(projections), keeper_(keeper) {
  MakeControls();
  LayOut();
  Connect();
}

void FilesPanel::MakeControls() {
  const QString boundariesName =
      "Standard format for file name is cbfile.mX where X is the current maze (session) number.";
  cmdReadCBFile = MakeButton("cmdReadCBFile", "Read CBFile",
                             "Read cluster boundaries file.  Right click to read in a subset of the clusters from "
                             "designated cbfile.  " +
                                 boundariesName);
  txtCBFileRead = MakeTextBox("txtCBFileRead", "Boundaries file to read",
                              "Name of the boundaries file to read, without .txt. Enter reads it.", 9, "cbfile.m1");
  cmdWriteCBFile = MakeButton("cmdWriteCBFile", "Write CBFile", "Write cluster boundaries file.  " + boundariesName);
  txtCBFileWrite = MakeTextBox("txtCBFileWrite", "Boundaries file to write",
                               "Name of the boundaries file to write, without .txt. Enter writes it.", 9, "cbfile.m1");
  cmdWriteClustFile = MakeButton("cmdWriteClustFile", "Write ClustFile",
                                 "Write points to cluster files.  Standard format for file name is cl-mazeX where X is "
                                 "the current maze (session) number");
  txtClustFile =
      MakeTextBox("txtClustFile", "Cluster files to write",
                  "Name of the cluster files; each one's number is added. Enter writes them.", 9, "cl-maze1");
  cmdSaveDefaults = MakeButton("cmdSaveDefaults", "Save Defaults", "Keep the file names and epochs for the next start");
  cmdExit = MakeButton("cmdExit", "Exit", "Exit Pallomir");
}

void FilesPanel::LayOut() {
  auto* grid = new QGridLayout(this);
  grid->setSpacing(4);
  grid->setContentsMargins(6, 5, 6, 5);
  grid->addWidget(cmdReadCBFile, 0, 0);
  grid->addWidget(txtCBFileRead, 0, 1);
  grid->addWidget(cmdWriteCBFile, 1, 0);
  grid->addWidget(txtCBFileWrite, 1, 1);
  grid->addWidget(cmdWriteClustFile, 0, 2);
  grid->addWidget(txtClustFile, 0, 3);
  grid->addLayout(Row({cmdSaveDefaults, nullptr, cmdExit}), 1, 2, 1, 2);
  grid->setRowStretch(2, 1);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
}

void FilesPanel::Connect() {
  bench_.OnClick(cmdReadCBFile, this, &FilesPanel::cmdReadCBFile_Click);
  QMenu* mnuReadCBFile = MakeMenu(this, "mnuReadCBFile", "ReadCBFile");
  bench_.On(MakeEntry(mnuReadCBFile, "mnuReadEntireCBFile", "Read Entire CBFile"), &QAction::triggered,
            [this] { cmdReadCBFile_Click(); });
  bench_.On(MakeEntry(mnuReadCBFile, "mnuReadSelectedClusters", "Read Selected Clusters"), &QAction::triggered,
            [this] { mnuReadSelectedClusters_Click(); });
  OpenByRightClick(cmdReadCBFile, mnuReadCBFile);
  bench_.OnClick(cmdWriteCBFile, this, &FilesPanel::cmdWriteCBFile_Click);
  bench_.OnClick(cmdWriteClustFile, this, &FilesPanel::cmdWriteClustFile_Click);
  bench_.OnClick(cmdSaveDefaults, this, &FilesPanel::cmdSaveDefaults_Click);
  bench_.OnClick(cmdExit, this, &FilesPanel::cmdExit_Click);
  connect(txtCBFileRead, &QLineEdit::returnPressed, cmdReadCBFile, &QPushButton::click);
  connect(txtCBFileWrite, &QLineEdit::returnPressed, cmdWriteCBFile, &QPushButton::click);
  connect(txtClustFile, &QLineEdit::returnPressed, cmdWriteClustFile, &QPushButton::click);
  bench_.KeepText(txtCBFileRead, bench_.Names.CBFileRead);
  bench_.KeepText(txtCBFileWrite, bench_.Names.CBFileWrite);
  bench_.KeepText(txtClustFile, bench_.Names.ClustFile);
}

void FilesPanel::AddTo(QMenu* menu) {
  bench_.AddEntry(
      menu, "mnuWriteBoundaries", "&Write boundaries", "Write the boundaries of all clusters, as Write CBFile does",
      [this] { cmdWriteCBFile_Click(); }, Qt::CTRL | Qt::Key_S);
}

void FilesPanel::WriteExitCopy() {
  txtCBFileWrite->setText("cbfile.exit");
  cmdWriteCBFile_Click();
}

void FilesPanel::cmdWriteCBFile_Click() {
  if (txtCBFileWrite->text().trimmed().isEmpty())
    throw CommandError(ErrorKind::Refused, "Type a name for the boundaries file first.");
  const std::filesystem::path path = BoundariesFilePath(session_, txtCBFileWrite->text().toStdString());
  AskBeforeWriting({path}, txtCBFileWrite);
  keeper_.Write(path);
  if (std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true) == 0)
    bench_.Say("No cluster has a boundary, so none was written. The earlier file is kept as .bak.");
}

void FilesPanel::AskBeforeWriting(const std::vector<std::filesystem::path>& paths, const QLineEdit* box) {
  const auto brought = fromDefaults_.find(box);
  for (const std::filesystem::path& path : paths) {
    const QString outside = FromText(PathText(PlaceOutside(session_.DataDirectory, path)));
    if (brought == fromDefaults_.end() || brought->second != box->text() || outside.isEmpty()) continue;
    bench_.Ask("The file Defaults names a file outside the data folder:\n\n" + outside + "\n\nWrite there?");
    fromDefaults_.erase(brought);
    break;
  }
  bench_.AskBeforeReplacing(paths);
}

std::filesystem::path FilesPanel::ReadPath() const {
  return BoundariesFilePath(session_, txtCBFileRead->text().toStdString());
}

void FilesPanel::cmdReadCBFile_Click() {
  const std::filesystem::path path = ReadPath();
  if (session_.DefinitionCounter != 0) SaveUndoSnapshot(session_);
  if (session_.FirstLoad) throw CommandError(ErrorKind::NotReady, "Need to Load Points first");
  bench_.AdviseOnFailure(BoundariesAdvice());
  RequireCBFile(path);
  ShowRead([&](const Progress& progress) {
    const bool read = ReadCBFile(session_, path, progress);
    if (read) keeper_.NoteRead(path);
    return read;
  });
}

void FilesPanel::mnuReadSelectedClusters_Click() {
  if (session_.DefinitionCounter != 0) SaveUndoSnapshot(session_);
  bench_.AdviseOnFailure(BoundariesAdvice());
  RequireCBFile(ReadPath());
  if (!chooseClusters_) {
    chooseClusters_ = new ChooseClusterForm(window());
    bench_.NameTetrode(chooseClusters_);
    bench_.On(chooseClusters_, &ChooseClusterForm::Go, [this] { cmdGo_Click(); });
  }
  chooseClusters_->show();
  chooseClusters_->raise();
}

void FilesPanel::cmdGo_Click() {
  chooseClusters_->hide();
  ShowRead([this](const Progress& progress) {
    return ReadSelectedClusters(session_, ReadPath(), chooseClusters_->Chosen(), progress);
  });
}

void FilesPanel::ShowRead(const std::function<bool(const Progress&)>& read) {
  QScopeGuard shown = qScopeGuard([this] {
    projections_.GiveUpPolygon();
    emit bench_.CutChanged();
  });
  bench_.AdviseOnFailure(
      "The boundaries from that file are not applied to the points yet. Undo restores the earlier cut.");
  bool understood = false;
  try {
    UnderErrorTitle([&] { bench_.ChangeCut([&](const Progress& progress) { understood = read(progress); }); });
  } catch (const Interrupted&) {
    shown.dismiss();  // an open polygon stays open
    throw;
  }
  if (understood) {
    projections_.Redraw();
    const auto clusters = std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true);
    bench_.Say(QString("Read; clusters with boundaries now: %1.").arg(clusters));
    return;
  }
  bench_.Say("There is no boundaries file of that name to read; the clusters were deleted. Undo restores them.");
}

void FilesPanel::cmdWriteClustFile_Click() {
  if (!bench_.TimesTyped()) bench_.AdviseOnFailure("Press Enter in both record boxes to fill in their times.");
  if (!session_.TemporaryMode)
    AskBeforeWriting(ClusterFilePaths(session_, bench_.ClusterTexts().ClustFile), txtClustFile);
  bench_.Work([&] { WriteClusterFiles(session_, bench_, bench_.ClusterTexts()); });
  if (!PointsLoaded(session_))
    bench_.Say(QString(session_.Points.Rows() == 0 ? "No points are loaded, and no spikes were written."
                                                   : "The range was unloaded: only its first spike was written.") +
               " Earlier cluster files are kept as OLD; the file of unclassified spikes was replaced.");
  if (session_.TemporaryMode)
    bench_.Say("Only the files of the analyses were written: one ended early. Let one run to its end first.");
}

void FilesPanel::ReadDefaultsFiles() {
  const Defaults own = bench_.Names;
  for (const char* place : {"..\\Defaults", "Defaults"})
    bench_.Run([&] {
      const std::filesystem::path path = PathIn(session_.DataDirectory, place);
      if (!ReadDefaults(session_, bench_.Names, path))
        bench_.AppendMessage(PathText(path) +
                             " has no header: nothing was taken from it, and the list of epochs is empty");
    });
  emit bench_.NamesRead();
  if (bench_.Names.CBFileWrite != own.CBFileWrite) fromDefaults_[txtCBFileWrite] = txtCBFileWrite->text();
  if (bench_.Names.ClustFile != own.ClustFile) fromDefaults_[txtClustFile] = txtClustFile->text();
}

void FilesPanel::cmdSaveDefaults_Click() {
  const QString path = bench_.TheDialogs().SaveFile(
      window(), {"Save Defaults File", "Defaults file (Defaults)|Defaults|All files (*.*)|*.*", "Defaults", {}, false});
  if (path.isEmpty()) return;
  const std::filesystem::path native = PathOf(path);
  if (FileUtility::FileExists(native) && !IsDefaultsFile(native))
    bench_.Ask(FromText(PathText(native)) + " is not a Defaults file.\n\nReplace it anyway?");
  bench_.AskBeforeReplacing({native});
  UnderErrorTitle([&] { WriteDefaults(session_, bench_.Names, native); }, ErrorKind::Refused);
}

}  // namespace pallomir
