#include "gui/live/correlograms_window.h"

#include <QtWidgets>

#include "gui/controls/controls.h"
#include "gui/live/correlogram_matrix.h"

namespace pallomir {

namespace {

/// The clusters that exist and are not hidden.
std::vector<int> ShownClusters(const Session& session) {
  std::vector<int> clusters;
  for (int c = 1; c <= kClusters; ++c)
    if (session.ClusterDefined[c] && !session.DisplayDisabled[c]) clusters.push_back(c);
  return clusters;
}

}  // namespace

CorrelogramsWindow::CorrelogramsWindow(Dialogs& dialogs)
    : LiveWindow("Correlograms", "Correlograms",
                 "Lags between the spikes of all pairs of displayed clusters, beside what chance would give", dialogs),
      matrix_(new CorrelogramMatrix),
      readOut_(MakeLabel({})) {
  readOut_->setProperty("quiet", true);
  QVBoxLayout* column = MakeContent();
  column->addWidget(matrix_, 1);
  AddText(column, readOut_);
  connect(matrix_, &CorrelogramMatrix::ClusterChosen, this, &CorrelogramsWindow::ClusterChosen);
  connect(matrix_, &CorrelogramMatrix::Hovered, this, [this](QPointF at) { readOut_->setText(matrix_->ReadOut(at)); });
}

void CorrelogramsWindow::AddWants(const Session& session, LiveWants& wants) const {
  wants.Correlograms = ShownClusters(session);
}

void CorrelogramsWindow::ShowState(const LiveState& state) {
  matrix_->ShowState(state, ShownClusters(state.Program));
  if (!matrix_->underMouse()) readOut_->setText(matrix_->ReadOut({-1, -1}));
}

}  // namespace pallomir
