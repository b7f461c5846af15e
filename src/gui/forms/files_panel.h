#pragma once

#include <map>

#include "gui/controls/controls.h"
#include "gui/forms/choose_cluster_form.h"
#include "gui/forms/cut_keeper.h"
#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"

namespace pallomir {

/// Commands for the files of a cut, and for leaving the program.
class FilesPanel : public QWidget {
  Q_OBJECT

 public:
  FilesPanel(Workbench& bench, Projections& projections, CutKeeper& keeper, QWidget* parent);

  /// Takes names and epochs from the Defaults files of the data directory and the folder above it.
  void ReadDefaultsFiles();

  /// Adds the panel's commands to a menu.
  void AddTo(QMenu* menu);

  /// Writes the boundaries under the name of the exit copy.
  void WriteExitCopy();

 signals:
  void Exit();

 private:
  void MakeControls();
  void LayOut();
  void Connect();
  void cmdWriteCBFile_Click();
  void cmdReadCBFile_Click();
  void mnuReadSelectedClusters_Click();
  void cmdGo_Click();
  void cmdWriteClustFile_Click();
  void cmdSaveDefaults_Click();
  void cmdExit_Click() { emit Exit(); }

  std::filesystem::path ReadPath() const;
  void ShowRead(const std::function<bool(const Progress&)>& read);
  /// Asks before write-protected files are replaced, and before anything is written outside the data folder to a name
  /// that came from a Defaults file, the one in `box`. Ends the command if the user declines.
  void AskBeforeWriting(const std::vector<std::filesystem::path>& paths, const QLineEdit* box);

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  CutKeeper& keeper_;
  ChooseClusterForm* chooseClusters_ = nullptr;
  /// Names from a Defaults file, not typed by the user.
  std::map<const QLineEdit*, QString> fromDefaults_;
  QPushButton* cmdReadCBFile;
  QLineEdit* txtCBFileRead;
  QPushButton* cmdWriteCBFile;
  QLineEdit* txtCBFileWrite;
  QPushButton* cmdWriteClustFile;
  QLineEdit* txtClustFile;
  QPushButton* cmdSaveDefaults;
  QPushButton* cmdExit;
};

}  // namespace pallomir
