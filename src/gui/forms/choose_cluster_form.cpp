#include "gui/forms/choose_cluster_form.h"

#include "gui/controls/controls.h"

namespace pallomir {

ChooseClusterForm::ChooseClusterForm(QWidget* parent) : QDialog(parent) {
  setObjectName("ChooseClusterForm");
  setWindowTitle("Choose Clusters");
  auto* instruction = MakeLabel("Choose Which Clusters to Copy Cluster Boundaries and Select Go");
  instruction->setObjectName("lblInstruction");
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(18);
  grid->setVerticalSpacing(6);
  for (int c = 1; c <= kClusters; ++c) {
    const QString name = QString("Cluster %1").arg(c);
    chkCluster_[c] = MakeCheckBox(Indexed("chkCluster", c), name, "Read the boundaries of " + name.toLower());
    grid->addWidget(chkCluster_[c], (c - 1) % 10, (c - 1) / 10);
  }
  auto* go = MakeButton("cmdGo", "GO", "Read the boundaries of the ticked clusters");
  auto* cancel = MakeButton("cmdCancel", "CANCEL", "Close without reading");
  go->setProperty("primary", true);
  go->setDefault(true);
  connect(go, &QPushButton::clicked, this, &ChooseClusterForm::Go);
  connect(cancel, &QPushButton::clicked, this, &QDialog::hide);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 12, 14, 12);
  column->setSpacing(12);
  column->addWidget(instruction);
  column->addLayout(grid);
  column->addLayout(Row({nullptr, cancel, go}));
}

ByCluster<bool> ChooseClusterForm::Chosen() const {
  ByCluster<bool> chosen{};
  for (int c = 1; c <= kClusters; ++c) chosen[c] = chkCluster_[c]->isChecked();
  return chosen;
}

}  // namespace pallomir
