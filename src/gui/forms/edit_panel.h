#pragma once

#include <QTimer>

#include "gui/controls/controls.h"
#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"

namespace pallomir {

/// Commands that change clusters and boundaries.
class EditPanel : public QWidget {
  Q_OBJECT

 public:
  EditPanel(Workbench& bench, Projections& projections, QWidget* parent);

  /// Removes the polygon that is being drawn.
  void TakeBackPolygon();

  /// If the overlap blinks, starts it again, for the parameters now displayed.
  void RestartOverlap();

 private:
  void MakeControls();
  void LayOut();
  void Connect();
  void cmdUndo_Click();
  void cmdCopyCluster_Click();
  void cmdDeleteCluster_Click();
  void cmdDeleteAllClusters_Click();
  void cmdDeleteClusterBounds_Click();
  void cmdHideCL0_Click();
  void cmdClusterInfo_Click();
  void cmdShowOverlap_Click();
  void ShowOverlapEnded();
  /// After a command changed the boundaries: updates the rows and the image, and abandons an open polygon.
  void ShowCut();

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  QTimer* tmrDelayTimer_;
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
