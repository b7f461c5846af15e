#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "gui/controls/dialogs.h"
#include "gui/forms/input_held_back.h"
#include "gui/forms/projections.h"
#include "pallomir/clusters/axis_scaling.h"
#include "pallomir/files/folder_lock.h"
#include "pallomir/session/defaults_file.h"
#include "pallomir/session/session.h"
#include "pallomir/session/work_pace.h"
#include "pallomir/session/world.h"

class QPlainTextEdit;
class QAbstractButton;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTimer;

namespace pallomir {

class AnalysesPanel;
class AxesPanel;
class ChooseClusterForm;
class ClNoteForm;
class ClusterPanel;
class Components;
class DisplayPanel;
class EditPanel;
class FilesPanel;
class LoadMultipleEpochsForm;
class RangePanel;
class TimeEpochs;
class Waveforms;
struct AnalysisTools;
struct ClusterFileTexts;

/// "Cluster cutting controls": the form with all commands.
class Main_Form : public QMainWindow, public World {
  Q_OBJECT

 public:
  Main_Form(Session& session, Dialogs& dialogs);
  ~Main_Form() override;

  /// The load event: lets the user choose the parameter file and initialises the run. Returns false if the program is
  /// to end.
  bool Form_Load();

  // World
  void ShowMessage(std::string_view text, std::string_view title) override;
  void AppendMessage(std::string_view line) override;
  void ShowProgress(double share) override;
  void HideProgress() override;
  bool PumpEvents() override;
  void StopHeard() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Layout and event connections (main_form_layout.cpp)
  void LayOut();
  void MakeMenus();
  void PlaceWindows();
  void OnClick(QAbstractButton* button, void (Main_Form::*handler)());
  void ConnectRange();
  void ConnectAxes();
  void ConnectDisplay();
  void ConnectClusters();
  void ConnectEdit();
  void ConnectFiles();
  void ConnectAnalyses();
  void ConnectKeys();

  // Events
  void cmdLoadPoints_Click();
  void cboEpochs_Click();
  void cmdDefineEpochs_Click();
  void mnuLoadMultipleEpochs_Click();
  void cmdLoad_Click();
  void frmLoadMultipleEpochs_Unload();
  void txtStartTime_DblClick();
  void txtEndTime_DblClick();
  void txtStartEvent_DblClick();
  void txtEndEvent_DblClick();
  void lstY_Axis_Up();
  void cmdScaleUp_Click();
  void cmdScaleDown_Click();
  void cmdScaleDefaults_Click();
  void cmdscaleXaxis_Click();
  void cmdscaleYaxis_Click();
  void mnuApplyXscaleToAllParameters_Click();
  void mnuApplyYscaleToAllParameters_Click();
  void cmdPointUp_Click();
  void cmdPointDown_Click();
  void cmdRandomX_Click();
  void cmdRandomY_Click();
  void cmdRedraw_MouseDown();
  void cmdClear_Click();
  void chkWhiteBackground_Click();
  void lblChooseCluster_Click(int c);
  void chkDisableClusterDisplay_Click(int c);
  void chkDisplayClusterAsZero_Click(int c);
  void chkDisplayOtherClustersAsZero_Click(int c);
  void cmdToggleClusters_Click();
  void cmdUndo_Click();
  void cmdCopyCluster_Click();
  void cmdDeleteCluster_Click();
  void cmdDeleteAllClusters_Click();
  void cmdDeleteClusterBounds_Click();
  void cmdHideCL0_Click();
  void cmdClusterInfo_Click();
  void cmdShowOverlap_Click();
  void cmdWriteCBFile_Click();
  void cmdReadCBFile_Click();
  void mnuReadSelectedClusters_Click();
  void cmdGo_Click();
  void cmdWriteClustFile_Click();
  void cmdRateMap_Click();
  void cmdOccMap_Click();
  void cmd2DAutoCorr_Click();
  void cmdAutoCorr_Click();
  void cmdLogISI_Click();
  void cmdDirection_Click();
  void cmdReport_Click();
  void cmdShowWaveforms_Click();
  void cmdShowAvgWaveforms_Click();
  void cmdClNote_Click();
  void cmdWriteCenterFile_Click();
  void Projections_CenterChosen(Vertex at);
  void cmdSaveDefaults_Click();
  void mnuWriteAxesScaleFile_Click();
  void mnuRestoreAxesScaleFromFile_Click();
  void Timer1_Timer();
  void cmdExit_Click();

  // Shared by the handlers
  /// Runs an event handler, unless another is running; shows what to do next if it fails.
  void Run(const std::function<void()>& handler);
  /// Runs a long operation: other input is blocked meanwhile; Esc and closing the program stop it.
  void Work(const std::function<void()>& work);
  /// A long change of the cut: if stopped, the cut is restored.
  void ChangeCut(const std::function<void(const Progress&)>& change);
  /// The same for the projection; returns false if stopped.
  bool ChangeCutOnProjection(const std::function<void(const Progress&)>& change);
  void SayAtWork();
  /// What most commands still need before they can run.
  QString NextStep() const;
  bool ChooseParameterFile();
  /// Locks the data directory for this program, or asks if another has locked it. False if the user declines.
  bool EnterFolder();
  /// Adds the tetrode's name to a window's title.
  void NameTetrode(QWidget* window) const;
  /// Loads, classifies and shows a range of records.
  void LoadRange(int32_t start, int32_t end);
  /// A load failed and left no points.
  void ShowNoPoints();
  /// Whether the typed times, which cluster files and analyses use, include all loaded points.
  bool TimesSpanLoaded() const;
  std::vector<std::string> EpochItems() const;
  /// What is wrong with the records of a chosen epoch.
  QString AboutRecords(int32_t first, int32_t last) const;
  ProjectionOptions Options() const;
  void Redraw();
  /// For settings that take effect at the next redraw: does nothing if no points are loaded.
  void RedrawIfLoaded();
  TypedRange Typed() const;
  void SetTypedAxis(int parameter);
  void ResetDisplay(int c);
  void LookUpTime(QLineEdit* record, QLineEdit* time);
  void RefreshClusters();
  void ShowPendingAxis();
  void ShowAxes(int x, int y);
  void TypeClusterDigit(int digit);
  /// Stops an operation or the slow redraw, cancels choosing the centre of the maze, or removes an open polygon.
  void Escape();
  bool ClusterChosen();
  /// After a command changed the boundaries: updates the rows and the image, and abandons an open polygon.
  void AfterEdit();
  void ShowOverlapEnded();
  /// Runs an analysis with the tools it needs; analyses of positions also need the position file.
  void Analyse(const std::function<void(const AnalysisTools&)>& analysis);
  void AnalysePlaces(const std::function<void(const AnalysisTools&)>& analysis);
  /// Which file an analysis of positions lacks, and where it comes from.
  QString MissingFileAdvice() const;
  std::string PositionName() const;
  ClusterFileTexts ClusterTexts() const;
  /// A menu entry that sets a button's tag and clicks it.
  static void RunTagged(QPushButton* button, const QString& tag);
  /// Sets whether the next left click on the projection is the centre of the maze.
  void ArmCenter(bool armed);
  /// Names the existing boundaries files, for a user who asked for another.
  QString BoundariesAdvice() const;
  std::string ReadPath() const;
  void ShowRead(const std::function<bool(const Progress&)>& read);
  /// Writes the boundaries, keeping a newer cut that this run has not read.
  void WriteBoundaries(const std::string& path);
  void Autosave();
  /// Asks before replacing write-protected files, and before writing outside the data folder to a name that came from a
  /// Defaults file, the one in `box`. Ends the command if the user declines.
  void AskBeforeWriting(const std::vector<std::string>& paths, const QLineEdit* box = nullptr);
  void Ask(const QString& question);
  /// Names the newest cut if it is not the one that Read CBFile would read.
  void TellNewestCut();
  Defaults PresentDefaults() const;
  void ReadDefaultsFiles();
  void StartAutosave();
  /// Closes the forms with something to save or to ask before the program ends. False if one stays open.
  bool CloseForms();
  /// Saves on exit. False if that failed and the user wants to stay.
  bool SaveOnExit();
  /// Saves the cut as the autosave does when the program has to end.
  void SaveBeforeTheEnd();
  void EndProgram();

  Session& session_;
  Dialogs& dialogs_;
  /// Of the data directory. If another program has it, only what the user orders is saved.
  FolderLock folder_;
  std::unique_ptr<Components> components_;
  RangePanel* range_;
  AxesPanel* axes_;
  ClusterPanel* clusters_;
  DisplayPanel* display_;
  EditPanel* edit_;
  FilesPanel* files_;
  AnalysesPanel* analyses_;
  ChooseClusterForm* chooseClusters_ = nullptr;
  QPointer<ClNoteForm> clNote_;
  QPointer<TimeEpochs> timeEpochs_;
  QPointer<Waveforms> waveforms_;
  QPointer<LoadMultipleEpochsForm> multipleEpochs_;
  QTimer* Timer1_;
  QTimer* tmrDelayTimer_;
  float lastAutosave_ = 0;
  /// Boundaries files read or written in this run.
  std::set<std::string> knownCuts_;
  /// Names from a Defaults file, not typed by the user.
  std::map<const QLineEdit*, QString> fromDefaults_;
  bool autosaveFailed_ = false;
  /// What to do next after a failed command, for the status line.
  QString advice_;
  /// The state after a command was stopped, for the status line.
  QString stopped_;
  /// The digits typed for a cluster number, and the time of the first one.
  int typedCluster_ = 0;
  QElapsedTimer typedAt_;
  QMenu* mnuscaleXaxis_;
  QMenu* mnuscaleYAxis_;
  /// All but the menus and the status line.
  QWidget* controls_;
  QPlainTextEdit* txtMessages_;
  QLabel* status_;
  std::unique_ptr<Projections> projections_;
  /// Handlers of a double click, or Enter, in a text box.
  std::map<QWidget*, void (Main_Form::*)()> doubleClicks_;
  /// The menu that a right click on a button opens.
  std::map<QWidget*, QMenu*> popups_;
  bool listKeyDown_ = false;
  bool working_ = false;
  bool stopWork_ = false;
  /// The program is to close once the operation has ended.
  bool closeAfterWork_ = false;
  bool closing_ = false;
  InputHeldBack atWork_{[this] { Escape(); }, [this] { SayAtWork(); }};
};

}  // namespace pallomir
