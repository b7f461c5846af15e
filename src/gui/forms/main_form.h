#pragma once

#include <QMainWindow>

#include "gui/controls/dialogs.h"
#include "gui/forms/cut_keeper.h"
#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"
#include "pallomir/session/session.h"

class QLabel;
class QPlainTextEdit;

namespace pallomir {

class AnalysesPanel;
class AxesPanel;
class ClusterPanel;
class DisplayPanel;
class EditPanel;
class FileMenu;
class FilesPanel;
class LiveWindows;
class RangePanel;

/// "Cluster cutting controls": the form with all commands. Each of its panels serves its own; the form starts and ends
/// the program.
class Main_Form : public QMainWindow {
  Q_OBJECT

 public:
  /// Without a file of its own, `preferences` are forgotten when the program ends.
  Main_Form(Session& session, Dialogs& dialogs, Preferences preferences = {});
  ~Main_Form() override;

  /// The load event: lets the user choose the parameter file and initialises the run. Returns false if the program is
  /// to end.
  bool Form_Load();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // Layout (main_form_layout.cpp)
  void LayOut();
  void MakeMenus();
  void PlaceWindows();
  void RememberWindows();

  void Connect();
  void ConnectLiveWindows();
  bool ChooseParameterFile();
  /// Stops an operation or the slow redraw, takes back the drag of a boundary, cancels choosing the centre of the maze,
  /// removes an open polygon, or hides the cross that keys move.
  void Escape();
  void cmdExit_Click();
  /// Closes the forms with something to save or to ask before the program ends. False if one stays open.
  bool CloseForms();
  /// Saves on exit. False if that failed and the user wants to stay.
  bool SaveOnExit();
  void EndProgram();

  Session& session_;
  Workbench bench_;
  CutKeeper keeper_;
  Projections projections_;
  RangePanel* range_;
  AxesPanel* axes_;
  ClusterPanel* clusters_;
  DisplayPanel* display_;
  EditPanel* edit_;
  FilesPanel* files_;
  AnalysesPanel* analyses_;
  FileMenu* fileMenu_;
  LiveWindows* live_;
  /// All but the menus and the status line.
  QWidget* controls_;
  QPlainTextEdit* txtMessages_;
  QLabel* status_;
  bool closing_ = false;
};

}  // namespace pallomir
