#pragma once

#include <array>

#include "gui/controls/controls.h"
#include "gui/forms/cluster_label.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// The thirty clusters on two pages, each with its label and three display boxes. A cluster without boundaries only has
/// a quiet label, which can be clicked to choose it.
class ClusterPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ClusterPanel(QWidget* parent);

  /// Shows or hides the row of cluster c, 1..30; c = 0 does nothing.
  void ShowRow(int c, bool shown);

  /// Paints all labels: the chosen cluster black on its colour, the others in their colours.
  void Paint(const ByCluster<Colour>& colours, int chosen);

  /// Switches between the two pages; the button's caption names the page that the next click shows.
  void TogglePages();

  QFrame* fraCL1to15;
  QFrame* fraCL16to30;
  QPushButton* cmdToggleClusters;
  std::array<ClusterLabel*, kClusterSlots> lblChooseCluster{};
  std::array<ClusterLabel*, kClusterSlots> lblNewCluster{};
  std::array<QCheckBox*, kClusterSlots> chkDisableClusterDisplay{};
  std::array<QCheckBox*, kClusterSlots> chkDisplayClusterAsZero{};
  std::array<QCheckBox*, kClusterSlots> chkDisplayOtherClustersAsZero{};

 private:
  QFrame* MakePage(const QString& name, int firstCluster);
  void MakeRow(QGridLayout* grid, int line, int c);
};

}  // namespace pallomir
