#pragma once

#include <QPointer>

#include "gui/controls/controls.h"
#include "gui/forms/load_multiple_epochs_form.h"
#include "gui/forms/projections.h"
#include "gui/forms/time_epochs_form.h"
#include "gui/forms/workbench.h"

namespace pallomir {

/// The loaded part of the recording: the file, an epoch, two records and their times.
class RangePanel : public QWidget {
  Q_OBJECT

 public:
  RangePanel(Workbench& bench, Projections& projections, QWidget* parent);

  /// Shows the session's data directory.
  void ShowFolder();
  /// Fills the boxes with the whole recording.
  void ShowWholeRecording();
  void FocusLoading() { cmdLoadPoints->setFocus(); }
  /// The Time Epochs form; null if it is not open.
  TimeEpochs* EpochsForm() const { return timeEpochs_; }

  /// Adds the panel's commands to a menu.
  void AddTo(QMenu* menu);

 private:
  void MakeBoxes();
  void MakeEpochs();
  void MakeLoading();
  void LayOut();
  void Connect();

  void cmdLoadPoints_Click();
  void txtStartTime_DblClick();
  void txtEndTime_DblClick();
  void txtStartEvent_DblClick();
  void txtEndEvent_DblClick();
  /// Loads, classifies and shows a range of records.
  void LoadRange(int32_t start, int32_t end);
  /// A load failed and left no points.
  void ShowNoPoints();
  void LookUpTime(QLineEdit* record, QLineEdit* time);

  // Epochs (range_panel_epochs.cpp)
  void cboEpochs_Click();
  void cmdDefineEpochs_Click();
  void mnuLoadMultipleEpochs_Click();
  void cmdLoad_Click();
  void frmLoadMultipleEpochs_Unload();
  /// Replaces the list of epochs; none is selected.
  void SetEpochs(const QStringList& items);
  /// Tells the workbench which epochs the list holds.
  void KeepEpochs();
  /// What is wrong with the records of a chosen epoch.
  QString AboutRecords(int32_t first, int32_t last) const;
  /// Tells the projection which epochs to draw.
  void SetRecordRanges();

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  QPointer<TimeEpochs> timeEpochs_;
  QPointer<LoadMultipleEpochsForm> multipleEpochs_;
  QLineEdit* txtCurDir;
  QLineEdit* txtParamFile;
  QComboBox* cboEpochs;
  QPushButton* cmdDefineEpochs;
  QLineEdit* txtStartEvent;
  QLineEdit* txtStartTime;
  QLineEdit* txtEndEvent;
  QLineEdit* txtEndTime;
  QPushButton* cmdLoadPoints;
  QMenu* mnuLoadPoints;
  QProgressBar* ProgressBar1;
};

}  // namespace pallomir
