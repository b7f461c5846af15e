#include <QtWidgets>

#include "gui/controls/run_command.h"
#include "gui/forms/boundary_mender.h"
#include "gui/forms/key_cross.h"
#include "gui/forms/projections.h"

// The keys in the projection view.

namespace pallomir {

namespace {

bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

}  // namespace

void Projections::keyPressEvent(QKeyEvent* event) {
  bool taken = false;
  RunCommand(bench_, [&] { taken = CrossKey(*event) || PolygonKey(*event) || ViewKey(*event); });
  if (!taken) QMainWindow::keyPressEvent(event);
}

void Projections::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Control) mender_->Hold(false);
  QWidget::keyReleaseEvent(event);
}

bool Projections::CrossKey(const QKeyEvent& key) {
  if (key.key() == Qt::Key_C && key.modifiers() == Qt::NoModifier) {
    if (cross_->Shown())
      cross_->Hide();
    else
      cross_->Show();
    ShowHint();
    return true;
  }
  if (cross_->Step(key.key(), key.modifiers())) {
    ShowPosition(cross_->At());
    return true;
  }
  if (key.key() != Qt::Key_Space || !cross_->Shown()) return false;
  if (!key.isAutoRepeat()) ClickCross();
  return true;
}

void Projections::ClickCross() {
  if (options_.Zoom)
    Say("Choose Draw bounds to draw with the cross.");
  else
    Form_MouseDown(Qt::LeftButton, cross_->At(), {});
}

void Projections::HideCross() {
  if (!cross_->Shown()) return;
  cross_->Hide();
  ShowHint();
}

bool Projections::PolygonKey(const QKeyEvent& key) {
  if (!open_) return false;
  if (key.key() == Qt::Key_Backspace)
    TakeBackCorner();
  else if (IsEnter(key) && !slow_.isActive())
    CloseByKey(cross_->Shown() ? cross_->At() : surface_->Pointer());
  else
    return false;
  return true;
}

void Projections::CloseByKey(Vertex at) {
  // Where the last corner was just set, that one is the last: it does not count twice.
  constexpr double kSamePlace = 2;
  const View scale = surface_->Scale();
  const Boundary& drawn = BoundaryOf(session_, *open_);
  const Vertex last = drawn.Vertices[drawn.VertexCount - 1];
  const bool again = std::abs(scale.PixelX(at.X) - scale.PixelX(last.X)) <= kSamePlace &&
                     std::abs(scale.PixelY(at.Y) - scale.PixelY(last.Y)) <= kSamePlace;
  if (again && drawn.VertexCount > 1) TakeBackVertex(session_, open_);
  Form_MouseDown(Qt::RightButton, again ? last : at, {});
}

void Projections::TakeBackCorner() {
  AbandonIfElsewhere(session_, open_);
  if (!open_) return;
  if (!TakeBackVertex(session_, open_)) {
    emit PolygonCancelled();
    return;
  }
  ShowPolygon();
  emit BoundariesChanged();
  ShowHint();
}

bool Projections::ViewKey(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Left:
      emit StepAxes(-1, 0);
      return true;
    case Qt::Key_Right:
      emit StepAxes(1, 0);
      return true;
    case Qt::Key_Up:
      emit StepAxes(0, -1);
      return true;
    case Qt::Key_Down:
      emit StepAxes(0, 1);
      return true;
    case Qt::Key_U:
      emit StepPairs(key.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
      return true;
    case Qt::Key_D:
      emit DensityAsked();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (slow_.isActive()) Redraw();
      return true;
    case Qt::Key_Control:
      mender_->Hold(CanMend());
      return true;
    case Qt::Key_Backspace:
      ZoomBack();
      return true;
    default:
      return false;
  }
}

}  // namespace pallomir
