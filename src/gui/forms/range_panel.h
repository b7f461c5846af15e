#pragma once

#include "gui/controls/controls.h"

namespace pallomir {

/// Which part of the recording is loaded: the file, an epoch, two records and the times that belong to them.
class RangePanel : public QWidget {
  Q_OBJECT

 public:
  explicit RangePanel(QWidget* parent);

  /// Makes these the list of epochs, none of them chosen.
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
