#pragma once

#include <QElapsedTimer>
#include <array>

#include "gui/controls/controls.h"
#include "gui/forms/cluster_label.h"
#include "gui/forms/projections.h"
#include "gui/forms/workbench.h"

namespace pallomir {

/// The thirty clusters on two pages, each with its label and three display boxes. A cluster without boundaries only has
/// a quiet label, which can be clicked to choose it.
class ClusterPanel : public QWidget {
  Q_OBJECT

 public:
  ClusterPanel(Workbench& bench, Projections& projections, QWidget* parent);

  /// Chooses cluster c, 1 to 30, and shows its row.
  void Choose(int c);

 private:
  QFrame* MakePage(const QString& name, int firstCluster);
  void MakeRow(QGridLayout* grid, int line, int c);
  void Connect();
  void lblChooseCluster_Click(int c);
  void chkDisableClusterDisplay_Click(int c);
  void chkDisplayClusterAsZero_Click(int c);
  void chkDisplayOtherClustersAsZero_Click(int c);
  /// Switches between the two pages; the button's caption names the page that the next click shows.
  void cmdToggleClusters_Click();
  /// A digit key: chooses a cluster; two digits typed quickly form one number.
  void TypeDigit(int digit);
  /// Chooses the next or previous cluster that has boundaries, round and round.
  void ChooseNeighbour(int step);
  void RedrawIfAutomatic();
  /// Shows which clusters exist and which one is chosen.
  void Refresh();
  /// Shows or hides the row of cluster c, 1..30; c = 0 does nothing.
  void ShowRow(int c, bool shown);
  void ResetDisplay(int c);
  /// Paints all labels: the chosen cluster black on its colour, the others in their colours.
  void Paint();

  Workbench& bench_;
  Session& session_;
  Projections& projections_;
  /// The digits typed for a cluster number, and the time of the first one.
  int typedCluster_ = 0;
  QElapsedTimer typedAt_;
  QFrame* fraCL1to15;
  QFrame* fraCL16to30;
  QPushButton* cmdToggleClusters;
  std::array<ClusterLabel*, kClusterSlots> lblChooseCluster{};
  std::array<ClusterLabel*, kClusterSlots> lblNewCluster{};
  std::array<QCheckBox*, kClusterSlots> chkDisableClusterDisplay{};
  std::array<QCheckBox*, kClusterSlots> chkDisplayClusterAsZero{};
  std::array<QCheckBox*, kClusterSlots> chkDisplayOtherClustersAsZero{};
};

}  // namespace pallomir
