#include "gui/forms/edit_panel.h"

namespace pallomir {

EditPanel::EditPanel(QWidget* parent) : QWidget(parent) {
  cmdUndo = MakeButton("cmdUndo", "Undo", "Undo the last command only");
  cmdDeleteClusterBounds = MakeButton("cmdDeleteClusterBounds", "Delete Cluster Bounds",
                                      "Delete the cluster boundaries on this projection only for selected cluster");
  cmdDeleteCluster = MakeButton("cmdDeleteCluster", "Delete Cluster ", "Delete all boundaries of selected cluster");
  cmdDeleteAllClusters = MakeButton("cmdDeleteAllClusters", "Delete All Clusters", "Delete ALL clusters");
  cmdCopyCluster = MakeButton("cmdCopyCluster",
                              "Copy Cluster To:", "Duplicate a cluster by copying all boundaries to a new cluster");
  txtCopyCluster = MakeTextBox("txtCopyCluster", "Cluster to copy to", "Number of the cluster to copy to, 1 to 30", 2);
  cmdHideCL0 = MakeButton("cmdHideCL0", "Hide CL 0", "Do not draw points that are in no cluster");
  cmdHideCL0->setCheckable(true);
  cmdClusterInfo =
      MakeButton("cmdClusterInfo", "Cluster Info", "Show projections on which the selected cluster was defined");
  cmdShowOverlap = MakeButton("cmdShowOverlap", "Show Overlap", "Show overlapping cluster points");

  auto* grid = new QGridLayout(this);
  grid->setSpacing(4);
  grid->setContentsMargins(6, 5, 6, 5);
  grid->addWidget(cmdUndo, 0, 0);
  grid->addWidget(cmdDeleteClusterBounds, 0, 1);
  grid->addLayout(Row({cmdCopyCluster, txtCopyCluster}), 0, 2);
  grid->addWidget(cmdHideCL0, 1, 0);
  grid->addWidget(cmdDeleteCluster, 1, 1);
  grid->addWidget(cmdClusterInfo, 1, 2);
  grid->addWidget(cmdShowOverlap, 2, 0);
  grid->addWidget(cmdDeleteAllClusters, 2, 1);
  grid->setRowStretch(3, 1);
  for (int column = 0; column < 3; ++column) grid->setColumnStretch(column, 1);
}

}  // namespace pallomir
