#pragma once

#include "gui/controls/controls.h"

namespace pallomir {

/// The loaded part of the recording: the file, an epoch, two records and their times.
class RangePanel : public QWidget {
  Q_OBJECT

 public:
  explicit RangePanel(QWidget* parent);

  /// Replaces the list of epochs; none is selected.
  void SetEpochs(const QStringList& items);

  QLineEdit* txtCurDir;
  QLineEdit* txtParamFile;
  QComboBox* cboEpochs;
  QPushButton* cmdDefineEpochs;
  QLineEdit* txtStartEvent;
  QLineEdit* txtStartTime;
  QLineEdit* txtEndEvent;
  QLineEdit* txtEndTime;
  QPushButton* cmdLoadPoints;
  QProgressBar* ProgressBar1;
};

}  // namespace pallomir
