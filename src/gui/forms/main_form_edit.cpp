// Commands that change clusters and boundaries.

#include <QtWidgets>

#include "gui/controls/run_command.h"
#include "gui/forms/edit_panel.h"
#include "gui/forms/main_form.h"
#include "pallomir/clusters/editing.h"
#include "pallomir/clusters/overlap.h"
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
  return QString("Cluster %1 was deleted: %2. Undo brings it back, Redraw shows it gone.").arg(outcome.Target).arg(why);
}

}  // namespace

void Main_Form::ConnectEdit() {
  OnClick(edit_->cmdUndo, &Main_Form::cmdUndo_Click);
  OnClick(edit_->cmdCopyCluster, &Main_Form::cmdCopyCluster_Click);
  OnClick(edit_->cmdDeleteCluster, &Main_Form::cmdDeleteCluster_Click);
  OnClick(edit_->cmdDeleteAllClusters, &Main_Form::cmdDeleteAllClusters_Click);
  OnClick(edit_->cmdDeleteClusterBounds, &Main_Form::cmdDeleteClusterBounds_Click);
  OnClick(edit_->cmdHideCL0, &Main_Form::cmdHideCL0_Click);
  OnClick(edit_->cmdClusterInfo, &Main_Form::cmdClusterInfo_Click);
  OnClick(edit_->cmdShowOverlap, &Main_Form::cmdShowOverlap_Click);
  connect(edit_->txtCopyCluster, &QLineEdit::returnPressed, edit_->cmdCopyCluster, &QPushButton::click);
  tmrDelayTimer_ = new QTimer(this);
  tmrDelayTimer_->setObjectName("tmrDelayTimer");
  tmrDelayTimer_->setInterval(500);
  connect(tmrDelayTimer_, &QTimer::timeout, this, [this] { RunCommand(*this, [this] { projections_->Blink(); }); });
  connect(projections_.get(), &Projections::OverlapEnded, this, &Main_Form::ShowOverlapEnded);
}

bool Main_Form::ClusterChosen() {
  if (session_.CurrentCluster != 0) return true;
  status_->setText(NextStep());
  return false;
}

void Main_Form::AfterEdit() {
  projections_->GiveUpPolygon();
  RefreshClusters();
  Redraw();
}

void Main_Form::cmdUndo_Click() {
  const bool change = session_.Undo.Clusters != session_.Clusters;
  ChangeCut([this](const Progress& progress) { UndoLastChange(session_, progress); });
  AfterEdit();
  status_->setText(change ? "Undone; Undo again leads back." : "There was nothing to undo.");
}

void Main_Form::cmdCopyCluster_Click() {
  if (!ClusterChosen()) return;
  const int source = session_.CurrentCluster;
  CopyOutcome outcome;
  ChangeCut(
      [&](const Progress& progress) { outcome = CopyCluster(session_, NumberIn(edit_->txtCopyCluster), progress); });
  if (outcome.Target == 0) {
    status_->setText("Nothing was done: type the number of a cluster, 1 to 30, beside the button.");
    return;
  }
  projections_->GiveUpPolygon();
  RefreshClusters();
  // Say so even if nothing is loaded and the image cannot be redrawn.
  advice_ = CopySentence(source, outcome);
  if (outcome.Copied) Redraw();
  status_->setText(advice_);
}

void Main_Form::cmdDeleteCluster_Click() {
  if (!ClusterChosen()) return;
  const int c = session_.CurrentCluster;
  const bool empty = session_.Clusters[c].BoundaryCount == 0;
  ChangeCut([this](const Progress& progress) { DeleteCurrentCluster(session_, progress); });
  AfterEdit();
  status_->setText(
      QString(empty ? "Cluster %1 had no boundary." : "Cluster %1 was deleted. Undo brings it back.").arg(c));
}

void Main_Form::cmdDeleteAllClusters_Click() {
  const bool any = std::count(session_.ClusterDefined.begin(), session_.ClusterDefined.end(), true) > 0;
  DeleteEveryCluster(session_);
  // Say so even if nothing is loaded and the image cannot be redrawn.
  advice_ = any ? "All clusters were deleted. Undo brings them back." : "There was no cluster to delete.";
  AfterEdit();
  status_->setText(advice_);
}

void Main_Form::cmdDeleteClusterBounds_Click() {
  if (!ClusterChosen()) return;
  const int c = session_.CurrentCluster, before = session_.Clusters[c].BoundaryCount;
  ChangeCut([this](const Progress& progress) { DeleteClusterBounds(session_, progress); });
  AfterEdit();
  status_->setText(session_.Clusters[c].BoundaryCount < before
                       ? "The boundary was deleted. Undo brings it back."
                       : QString("Cluster %1 has no boundary on this projection.").arg(c));
}

void Main_Form::cmdHideCL0_Click() {
  session_.Display[0] = !session_.Display[0];
  ShowClusters(session_);
  edit_->cmdHideCL0->setChecked(!session_.Display[0]);
  edit_->cmdHideCL0->setText(session_.Display[0] ? "Hide CL 0" : "Show CL 0");
  RedrawIfLoaded();
}

void Main_Form::cmdClusterInfo_Click() {
  if (!ClusterChosen()) return;
  for (const std::string& line : ClusterInfo(session_)) AppendMessage(line);
}

void Main_Form::cmdShowOverlap_Click() {
  if (projections_->OverlapRunning()) {
    projections_->StopOverlap();
    Redraw();
    return;
  }
  projections_->StartOverlap(PointsInSeveralClusters(session_));
  edit_->cmdShowOverlap->setText("Stop Overlap");
  tmrDelayTimer_->start();
}

void Main_Form::ShowOverlapEnded() {
  tmrDelayTimer_->stop();
  edit_->cmdShowOverlap->setText("Show Overlap");
}

}  // namespace pallomir
