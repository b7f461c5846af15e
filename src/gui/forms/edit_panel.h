#pragma once

#include "gui/controls/controls.h"

namespace pallomir {

/// Commands that change clusters and boundaries.
class EditPanel : public QWidget {
  Q_OBJECT

 public:
  explicit EditPanel(QWidget* parent);

  QPushButton* cmdUndo;
  QPushButton* cmdDeleteClusterBounds;
  QPushButton* cmdDeleteCluster;
  QPushButton* cmdDeleteAllClusters;
  QPushButton* cmdCopyCluster;
  QLineEdit* txtCopyCluster;
  QPushButton* cmdHideCL0;
  QPushButton* cmdClusterInfo;
  QPushButton* cmdShowOverlap;
};

}  // namespace pallomir
