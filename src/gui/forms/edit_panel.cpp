#include "gui/forms/edit_panel.h"

#include "gui/controls/run_command.h"
#include "pallomir/clusters/editing.h"
#include "pallomir/clusters/undo.h"
#include "pallomir/projection/colours.h"

namespace pallomir {

namespace {

/// The result of copying cluster `source`, as a sentence. A copy that only deleted does not redraw the image.
QString CopySentence(int source, const CopyOutcome& outcome) {
  if (outcome.Copied) return QString("Cluster %1 was copied to cluster %2.").arg(source).arg(outcome.Target);
  if (!outcome.Deleted) return QString("Cluster %1 has no boundary to copy.").arg(source);
  const QString why =
      source == outcome.Target ? "it was copied onto itself" : QString("cluster %1 is empty").arg(source);
  return QString("Cluster %1 was deleted: %2. Undo restores it; Redraw removes it from the picture.")
      .arg(outcome.Target)
      .arg(why);
}

}  // namespace

EditPanel::EditPanel(Workbench& bench, Projections& projections, QWidget* parent)
    : QWidget(parent), bench_(bench), session_(bench.TheSession()), projections_(projections) {
  MakeControls();
  LayOut();
  Connect();
}

void EditPanel::MakeControls() {
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
  tmrDelayTimer_ = new QTimer(this);
  tmrDelayTimer_->setObjectName("tmrDelayTimer");
  tmrDelayTimer_->setInterval(500);
}

void EditPanel::LayOut() {
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

void EditPanel::Connect() {
  bench_.OnClick(cmdUndo, this, &EditPanel::cmdUndo_Click);
  bench_.OnKey(QKeySequence::Undo, [this] { cmdUndo_Click(); });
  bench_.OnClick(cmdCopyCluster, this, &EditPanel::cmdCopyCluster_Click);
  connect(txtCopyCluster, &QLineEdit::returnPressed, cmdCopyCluster, &QPushButton::click);
  bench_.OnClick(cmdDeleteCluster, this, &EditPanel::cmdDeleteCluster_Click);
  bench_.OnClick(cmdDeleteAllClusters, this, &EditPanel::cmdDeleteAllClusters_Click);
  bench_.OnClick(cmdDeleteClusterBounds, this, &EditPanel::cmdDeleteClusterBounds_Click);
  bench_.OnClick(cmdHideCL0, this, &EditPanel::cmdHideCL0_Click);
  bench_.OnClick(cmdClusterInfo, this, &EditPanel::cmdClusterInfo_Click);
  bench_.OnClick(cmdShowOverlap, this, &EditPanel::cmdShowOverlap_Click);
  connect(tmrDelayTimer_, &QTimer::timeout, this, [this] { RunCommand(bench_, [this] { projections_.Blink(); }); });
  bench_.On(&projections_, &Projections::PolygonCancelled, [this] { TakeBackPolygon(); });
  connect(&projections_, &Projections::OverlapEnded, this, &EditPanel::ShowOverlapEnded);
}

void EditPanel::TakeBackPolygon() {
  bench_.ChangeCut([this](const Progress& progress) { projections_.TakeBackPolygon(progress); });
  ShowCut();
  bench_.Say("The open polygon was cancelled.");
}

void EditPanel::ShowCut() {
  projections_.GiveUpPolygon();
  emit bench_.CutChanged();
  projections_.Redraw();
}

void EditPanel::cmdUndo_Click() {
  const bool change = session_.Undo.Clusters != session_.Clusters;
  bench_.ChangeCut([this](const Progress& progress) { UndoLastChange(session_, progress); });
  ShowCut();
  bench_.Say(change ? "Undone; press Undo again to redo." : "There was nothing to undo.");
}

void EditPanel::cmdCopyCluster_Click() {
  if (!bench_.ClusterChosen()) return;
  const int source = session_.CurrentCluster;
  CopyOutcome outcome;
  bench_.ChangeCut(
      [&](const Progress& progress) { outcome = CopyCluster(session_, NumberIn(txtCopyCluster), progress); });
  if (outcome.Target == 0) {
    bench_.Say("Nothing was copied: type the number of a cluster, 1 to 30, beside the button.");
    return;
  }
  projections_.GiveUpPolygon();
  emit bench_.CutChanged();
  // Say so even if nothing is loaded and the image cannot be redrawn.
  const QString told = CopySentence(source, outcome);
  bench_.AdviseOnFailure(told);
  if (outcome.Copied) projections_.Redraw();
  bench_.Say(told);
}

void EditPanel::cmdDeleteCluster_Click() {
  if (!bench_.ClusterChosen()) return;
  const int c = session_.CurrentCluster;
  const bool empty = session_.Clusters[c].BoundaryCount == 0;
  bench_.ChangeCut([this](const Progress& progress) { DeleteCurrentCluster(session_, progress); });
  ShowCut();
  bench_.Say(QString(empty ? "Cluster %1 had no boundary." : "Cluster %1 was deleted. Undo restores it.").arg(c));
}

void EditPanel::cmdDeleteAllClusters_Click() {
  const bool any = std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true) > 0;
  DeleteEveryCluster(session_);
  // Say so even if nothing is loaded and the image cannot be redrawn.
  const QString told = any ? "All clusters were deleted. Undo restores them." : "There was no cluster to delete.";
  bench_.AdviseOnFailure(told);
  ShowCut();
  bench_.Say(told);
}

void EditPanel::cmdDeleteClusterBounds_Click() {
  if (!bench_.ClusterChosen()) return;
  const int c = session_.CurrentCluster, before = session_.Clusters[c].BoundaryCount;
  bench_.ChangeCut([this](const Progress& progress) { DeleteClusterBounds(session_, progress); });
  ShowCut();
  bench_.Say(session_.Clusters[c].BoundaryCount < before
                 ? "The boundary was deleted. Undo restores it."
                 : QString("Cluster %1 has no boundary on this projection.").arg(c));
}

void EditPanel::cmdHideCL0_Click() {
  session_.Display[0] = !session_.Display[0];
  ShowClusters(session_);
  cmdHideCL0->setChecked(!session_.Display[0]);
  cmdHideCL0->setText(session_.Display[0] ? "Hide CL 0" : "Show CL 0");
  projections_.RedrawIfLoaded();
}

void EditPanel::cmdClusterInfo_Click() {
  if (!bench_.ClusterChosen()) return;
  for (const std::string& line : ClusterInfo(session_)) bench_.AppendMessage(line);
}

void EditPanel::cmdShowOverlap_Click() {
  if (projections_.OverlapRunning()) {
    projections_.StopOverlap();
    projections_.Redraw();
    return;
  }
  projections_.StartOverlap(PointsInSeveralClusters(session_));
  cmdShowOverlap->setText("Stop Overlap");
  tmrDelayTimer_->start();
}

void EditPanel::ShowOverlapEnded() {
  tmrDelayTimer_->stop();
  cmdShowOverlap->setText("Show Overlap");
}

void EditPanel::RestartOverlap() {
  if (!projections_.OverlapRunning()) return;
  projections_.StopOverlap();
  cmdShowOverlap_Click();
}

}  // namespace pallomir
