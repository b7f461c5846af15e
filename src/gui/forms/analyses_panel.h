#pragma once

#include "gui/controls/controls.h"

namespace pallomir {

/// Commands that analyse a cluster.
class AnalysesPanel : public QWidget {
  Q_OBJECT

 public:
  explicit AnalysesPanel(QWidget* parent);

  /// Whether the button's tag says that the next click on the projection sets the centre of the maze.
  bool CenterArmed() const { return cmdWriteCenterFile->property("Tag").toDouble() == 1; }

  QPushButton* cmdRateMap;
  QPushButton* cmdOccMap;
  QPushButton* cmd2DAutoCorr;
  QPushButton* cmdAutoCorr;
  QPushButton* cmdLogISI;
  QPushButton* cmdDirection;
  QPushButton* cmdReport;
  QPushButton* cmdShowWaveforms;
  QPushButton* cmdShowAvgWaveforms;
  QPushButton* cmdClNote;
  QLineEdit* txtPosFile;
  QPushButton* cmdWriteCenterFile;
  QLineEdit* txtCenterFile;
};

}  // namespace pallomir
