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

/// "Cluster cutting controls": the form that all commands are given on.
class Main_Form : public QMainWindow, public World {
  Q_OBJECT

 public:
  Main_Form(Session& session, Dialogs& dialogs);
  ~Main_Form() override;

  /// The load event: lets the user choose the parameter file and sets the run up. False when the program is to end.
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
  // Layout and what happens on which event (main_form_layout.cpp)
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
  /// Runs an event handler: not while another works, and says what to do next when it ends early.
  void Run(const std::function<void()>& handler);
  /// Runs what may take long: nothing else is let in meanwhile, Esc and closing the program stop it.
  void Work(const std::function<void()>& work);
  /// Work that changes the cut: when it is stopped, the cut is as it was before.
  void ChangeCut(const std::function<void(const Progress&)>& change);
  /// The same for the projection; false when it was stopped.
  bool ChangeCutOnProjection(const std::function<void(const Progress&)>& change);
  void SayAtWork();
  /// What is missing before most commands can run.
  QString NextStep() const;
  bool ChooseParameterFile();
  /// Takes the data directory for this program, or asks when another has it. False when the user rather not enters.
  bool EnterFolder();
  /// Says in a window's title which tetrode it is of.
  void NameTetrode(QWidget* window) const;
  /// Loads, classifies and shows a range of records.
  void LoadRange(int32_t start, int32_t end);
  /// A load has ended early and left no points.
  void ShowNoPoints();
  /// Whether the times typed, by which cluster files and analyses go, hold all loaded points.
  bool TimesSpanLoaded() const;
  std::vector<std::string> EpochItems() const;
  /// What is not well with the records of an epoch that was chosen.
  QString AboutRecords(int32_t first, int32_t last) const;
  ProjectionOptions Options() const;
  void Redraw();
  /// For what takes effect at the next redraw: none is asked for while nothing is loaded.
  void RedrawIfLoaded();
  TypedRange Typed() const;
  void SetTypedAxis(int parameter);
  void ResetDisplay(int c);
  void LookUpTime(QLineEdit* record, QLineEdit* time);
  void RefreshClusters();
  void ShowPendingAxis();
  void ShowAxes(int x, int y);
  void TypeClusterDigit(int digit);
  /// Stops work or the drawing of one point at a time; gives the centre of the maze up; takes an open polygon back.
  void Escape();
  bool ClusterChosen();
  /// After the boundaries were changed by a command: the rows, the picture, no open polygon.
  void AfterEdit();
  void ShowOverlapEnded();
  /// Runs an analysis with what it needs; one of places needs the position file too.
  void Analyse(const std::function<void(const AnalysisTools&)>& analysis);
  void AnalysePlaces(const std::function<void(const AnalysisTools&)>& analysis);
  /// Which file an analysis of places misses, and where it comes from.
  QString MissingFileAdvice() const;
  std::string PositionName() const;
  ClusterFileTexts ClusterTexts() const;
  /// A menu entry that sets a button's tag and runs it.
  static void RunTagged(QPushButton* button, const QString& tag);
  /// The next left click on the projection is the centre of the maze, or no longer is.
  void ArmCenter(bool armed);
  /// Says which boundaries files there are, for who asked for another.
  QString BoundariesAdvice() const;
  std::string ReadPath() const;
  void ShowRead(const std::function<bool(const Progress&)>& read);
  /// Writes boundaries so that a newer cut which nobody has read stays.
  void WriteBoundaries(const std::string& path);
  void Autosave();
  /// Asks before files are replaced that are write-protected, and before anything is written out of the data folder by
  /// a name that came from a Defaults file, the one in `box`. Ends the command where the user does not agree.
  void AskBeforeWriting(const std::vector<std::string>& paths, const QLineEdit* box = nullptr);
  void Ask(const QString& question);
  /// Names the newest cut where it is not the one that Read CBFile would read.
  void TellNewestCut();
  Defaults PresentDefaults() const;
  void ReadDefaultsFiles();
  void StartAutosave();
  /// Forms with something to save or to ask about close before the program does. False when one stays.
  bool CloseForms();
  /// The exit sequence's saving. False when it failed and the user wants to stay.
  bool SaveOnExit();
  /// A program that has to end keeps the cut as the autosave does.
  void SaveBeforeTheEnd();
  void EndProgram();

  Session& session_;
  Dialogs& dialogs_;
  /// Of the data directory. Where another program has it, nothing is saved but what the user orders.
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
  /// Boundaries files that this run read or wrote.
  std::set<std::string> knownCuts_;
  /// Names as a Defaults file brought them; they are not the user's own.
  std::map<const QLineEdit*, QString> fromDefaults_;
  bool autosaveFailed_ = false;
  /// What a command that ended early says to do next, in the status line.
  QString advice_;
  /// What holds once a command was stopped.
  QString stopped_;
  /// Digits typed for a cluster number, and when the first one was.
  int typedCluster_ = 0;
  QElapsedTimer typedAt_;
  QMenu* mnuscaleXaxis_;
  QMenu* mnuscaleYAxis_;
  /// All but the menus and the status line.
  QWidget* controls_;
  QPlainTextEdit* txtMessages_;
  QLabel* status_;
  std::unique_ptr<Projections> projections_;
  /// What a double-click, or Enter, in a text box runs.
  std::map<QWidget*, void (Main_Form::*)()> doubleClicks_;
  /// The menu that a right click on a button opens.
  std::map<QWidget*, QMenu*> popups_;
  bool listKeyDown_ = false;
  bool working_ = false;
  bool stopWork_ = false;
  /// Closing was asked for while work was running.
  bool closeAfterWork_ = false;
  bool closing_ = false;
  InputHeldBack atWork_{[this] { Escape(); }, [this] { SayAtWork(); }};
};

}  // namespace pallomir
