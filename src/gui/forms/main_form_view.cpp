// What is displayed and how: axes, points, colours, the choice of clusters.

#include <QtWidgets>
#include <cmath>

#include "gui/controls/controls.h"
#include "gui/forms/analyses_panel.h"
#include "gui/forms/axes_panel.h"
#include "gui/forms/cl_note_form.h"
#include "gui/forms/cluster_panel.h"
#include "gui/forms/display_panel.h"
#include "gui/forms/load_multiple_epochs_form.h"
#include "gui/forms/main_form.h"
#include "pallomir/projection/colours.h"

namespace pallomir {

namespace {

constexpr double kUsualBatch = 250000;

}  // namespace

ProjectionOptions Main_Form::Options() const {
  ProjectionOptions options;
  options.Zoom = display_->optZoom->isChecked();
  options.DrawBoundaries = display_->chkDrawClustBounds->isChecked();
  options.AxesOff = display_->chkAxesOff->isChecked();
  options.Busy = working_;
  options.CenterArmed = analyses_->CenterArmed();
  const double batch = std::nearbyint(NumberIn(display_->txtDelay).value_or(kUsualBatch));
  options.Batch = static_cast<size_t>(std::clamp(batch, 1.0, 1e15));
  if (display_->chkDownsample->isChecked()) {
    const auto fraction = SingleIn(display_->txtDownsampleFraction);
    if (fraction)
      options.Drawing.DownsampleFraction = *fraction;
    else
      options.CountNote = ": the part to downsample to is not a number";
  }
  if (session_.MultipleEpochs && multipleEpochs_) options.Drawing.RecordRanges = multipleEpochs_->RecordRanges();
  return options;
}

void Main_Form::Redraw() {
  projections_->Redraw();
}

void Main_Form::RedrawIfLoaded() {
  if (PointsLoaded(session_)) Redraw();
}

void Main_Form::lstY_Axis_Up() {
  session_.XParameter = static_cast<int16_t>(axes_->lstX_Axis->currentRow());
  session_.YParameter = static_cast<int16_t>(axes_->lstY_Axis->currentRow());
  ShowPendingAxis();
  Redraw();
  if (!projections_->OverlapRunning()) return;
  projections_->StopOverlap();
  cmdShowOverlap_Click();
}

void Main_Form::ShowAxes(int x, int y) {
  axes_->lstX_Axis->setCurrentRow(std::clamp(x, 0, kParameters - 1));
  axes_->lstY_Axis->setCurrentRow(std::clamp(y, 0, kParameters - 1));
  lstY_Axis_Up();
}

void Main_Form::ShowPendingAxis() {
  const auto* chosen = axes_->lstX_Axis->currentItem();
  if (!chosen || axes_->lstX_Axis->currentRow() == session_.XParameter)
    status_->clear();
  else
    status_->setText(QString("%1 comes on view with the next click or key in the Y list.").arg(chosen->text()));
}

void Main_Form::cmdScaleUp_Click() {
  ScaleUp(session_);
  Redraw();
}

void Main_Form::cmdScaleDown_Click() {
  ScaleDown(session_);
  Redraw();
}

void Main_Form::cmdScaleDefaults_Click() {
  ScaleDefaults(session_);
  Redraw();
}

TypedRange Main_Form::Typed() const {
  return {NumberIn(axes_->txtLower), NumberIn(axes_->txtUpper)};
}

void Main_Form::cmdscaleXaxis_Click() {
  SetTypedAxis(session_.XParameter);
}

void Main_Form::cmdscaleYaxis_Click() {
  SetTypedAxis(session_.YParameter);
}

void Main_Form::SetTypedAxis(int parameter) {
  const TypedRange range = Typed();
  SetAxis(session_, parameter, range);
  status_->setText(range.Lower || range.Upper ? "The new range shows at the next redraw."
                                              : "Type the lower or the upper end first.");
}

void Main_Form::mnuApplyXscaleToAllParameters_Click() {
  SetAllAxes(session_, Typed());
  Redraw();
}

void Main_Form::mnuApplyYscaleToAllParameters_Click() {
  mnuApplyXscaleToAllParameters_Click();
}

void Main_Form::cmdPointUp_Click() {
  session_.PointSize = session_.PointSize >= 1 ? session_.PointSize + 1 : 1;
  Redraw();
}

void Main_Form::cmdPointDown_Click() {
  session_.PointSize = session_.PointSize > 1 ? session_.PointSize - 1 : 0.5F;
  Redraw();
}

void Main_Form::cmdRandomX_Click() {
  session_.RandomX = display_->cmdRandomX->isChecked();
  Redraw();
}

void Main_Form::cmdRandomY_Click() {
  session_.RandomY = display_->cmdRandomY->isChecked();
  Redraw();
}

void Main_Form::cmdRedraw_MouseDown() {
  if (projections_->SlowRedrawRunning())
    projections_->StopSlowRedraw();
  else
    projections_->StartSlowRedraw();
}

void Main_Form::cmdClear_Click() {
  projections_->Clear();
}

void Main_Form::chkWhiteBackground_Click() {
  session_.WhiteBackground = display_->chkWhiteBackground->isChecked();
  BuildColourTable(session_);
  RedrawIfLoaded();
}

void Main_Form::lblChooseCluster_Click(int c) {
  session_.CurrentCluster = static_cast<int16_t>(c);
  clusters_->Paint(session_.ReferenceColours, c);
  projections_->ShowCluster();
  if (clNote_) clNote_->ShowCurrentCluster();
}

void Main_Form::TypeClusterDigit(int digit) {
  constexpr qint64 kTogether = 800;  // milliseconds within which two digits form one number
  const bool second = typedAt_.isValid() && typedAt_.elapsed() < kTogether;
  typedCluster_ = second && typedCluster_ * 10 + digit <= kClusters ? typedCluster_ * 10 + digit : digit;
  typedAt_.start();
  if (typedCluster_ == 0) return;
  const bool onShownPage = (typedCluster_ <= 15) == !clusters_->fraCL1to15->isHidden();
  if (!onShownPage) cmdToggleClusters_Click();
  lblChooseCluster_Click(typedCluster_);
}

void Main_Form::chkDisableClusterDisplay_Click(int c) {
  session_.DisplayDisabled[c] = clusters_->chkDisableClusterDisplay[c]->isChecked();
  ShowClusters(session_);
  if (session_.AutomaticRedraw) RedrawIfLoaded();
}

void Main_Form::chkDisplayClusterAsZero_Click(int c) {
  session_.DisplayAsZero[c] = clusters_->chkDisplayClusterAsZero[c]->isChecked();
  BuildColourTable(session_);
  ShowClusters(session_);
  if (session_.AutomaticRedraw) RedrawIfLoaded();
}

void Main_Form::chkDisplayOtherClustersAsZero_Click(int c) {
  const bool others = clusters_->chkDisplayOtherClustersAsZero[c]->isChecked();
  session_.AutomaticRedraw = false;
  for (int other = 1; other <= kClusters; ++other) {
    clusters_->chkDisplayClusterAsZero[other]->setChecked(others && other != c);
    if (other != c) clusters_->chkDisplayOtherClustersAsZero[other]->setChecked(false);
  }
  session_.AutomaticRedraw = true;
  BuildColourTable(session_);
  RedrawIfLoaded();
}

void Main_Form::cmdToggleClusters_Click() {
  clusters_->TogglePages();
}

void Main_Form::ResetDisplay(int c) {
  session_.AutomaticRedraw = false;
  clusters_->chkDisableClusterDisplay[c]->setChecked(false);
  clusters_->chkDisplayClusterAsZero[c]->setChecked(false);
  if (clusters_->chkDisplayOtherClustersAsZero[c]->isChecked()) {
    clusters_->chkDisplayOtherClustersAsZero[c]->setChecked(false);
    for (int other = 1; other <= kClusters; ++other) clusters_->chkDisplayClusterAsZero[other]->setChecked(false);
  }
  session_.AutomaticRedraw = true;
}

void Main_Form::RefreshClusters() {
  for (int c = 1; c <= kClusters; ++c) {
    // A cluster that was deleted loses its display settings.
    if (!session_.ClusterDefined[c] && clusters_->lblChooseCluster[c]->property("Tag") == "1") ResetDisplay(c);
    clusters_->ShowRow(c, session_.ClusterDefined[c]);
  }
  clusters_->Paint(session_.ReferenceColours, session_.CurrentCluster);
}

}  // namespace pallomir
