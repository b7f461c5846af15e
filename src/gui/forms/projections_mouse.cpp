#include <QtWidgets>
#include <cmath>

#include "gui/controls/controls.h"
#include "gui/controls/run_command.h"
#include "gui/controls/toolkit_values.h"
#include "gui/forms/boundary_mender.h"
#include "gui/forms/key_cross.h"
#include "gui/forms/projections.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"
#include "pallomir/projection/counted_part.h"

// The mouse and keys in the projection view, and its hints about them.

namespace pallomir {

namespace {

/// The number of points in a cluster, and how many of them no image shows.
QString PointsHeld(const Session& session, int c) {
  const QString held = FromText(Grouped(PointsInCluster(session, c))) + " points";
  const int64_t unseen = PointsNotFinite(session, c);
  return unseen == 0 ? held : held + QString(" (%1 with values that are not numbers)").arg(FromText(Grouped(unseen)));
}

}  // namespace

void Projections::ConnectSurface() {
  connect(surface_, &PlotSurface::Pressed, this, [this](Qt::MouseButton button, Vertex at, Qt::KeyboardModifiers keys) {
    RunCommand(bench_, [&] { Form_MouseDown(button, at, keys); });
  });
  connect(surface_, &PlotSurface::Moved, this,
          [this](Vertex at, Qt::KeyboardModifiers keys) { RunCommand(bench_, [&] { Form_MouseMove(at, keys); }); });
  connect(surface_, &PlotSurface::Released, this,
          [this](Qt::MouseButton button, Vertex at) { RunCommand(bench_, [&] { Form_MouseUp(button, at); }); });
  connect(surface_, &PlotSurface::Wheeled, this,
          [this](double notches, Vertex at) { RunCommand(bench_, [&] { Form_MouseWheel(notches, at); }); });
}

void Projections::ConnectMender() {
  connect(mender_, &BoundaryMender::LooksChanged, this, [this] {
    ShowPolygon();
    if (!mender_->Dragging()) ShowHint();
  });
  connect(mender_, &BoundaryMender::Said, this, &Projections::Say);
  connect(mender_, &BoundaryMender::Mended, this, [this] {
    emit BoundariesChanged();
    Redraw();
    const int c = session_.CurrentCluster;
    Say(QString("Cluster %1 holds %2. Undo takes the change back.").arg(c).arg(PointsHeld(session_, c)));
  });
}

void Projections::Say(const QString& text) {
  message_->setText(text);
  message_->setToolTip(PlainToolTip(text));
}

QString Projections::Hint() const {
  const int c = session_.CurrentCluster;
  const Cluster& cluster = session_.Clusters[c];
  if (!PointsLoaded(session_)) return "Load points to see them here.";
  if (!surface_->Scale().Drawable()) return "An axis has no extent: give it two ends that differ, or press Defaults.";
  if (slow_.isActive())
    return "Drawing points one at a time, Draw Speed of them per second. Redraw or Enter shows all; Esc stops.";
  for (const int p : {session_.XParameter, session_.YParameter})
    if (session_.AllZero[p])
      return FromText(session_.ParameterNames[p] + " is 0 for every spike: choose another parameter.");
  if (centreArmed_ && (session_.XParameter != kPosX || session_.YParameter != kPosY))
    return "Show PosX against PosY first, then click the centre of the maze; Esc cancels.";
  if (centreArmed_)
    return options_.Zoom ? "Choose Draw bounds to click the centre of the maze; Esc cancels."
                         : "Click the centre of the maze to write the center file; Esc cancels.";
  if (options_.Zoom) return "Drag a rectangle to zoom into it. Scale Down or Defaults zooms out again.";
  if (open_) return PolygonHint();
  if (cross_->Shown())
    return c == 0 ? "Choose a cluster, then set the corners of a polygon with the cross. Esc hides it."
                  : QString(
                        "Cluster %1: the arrow keys move the cross (with Shift a little, with Ctrl far), Space sets "
                        "a corner. Esc hides it.")
                        .arg(c);
  if (mender_->Holding()) return mender_->Hint();
  if (c == 0) return "Choose a cluster on the left, then click the corners of a polygon here.";
  if (cluster.BoundaryCount == 0)
    return QString("Cluster %1: click the corners of a polygon here, the last one with the right button.").arg(c);
  const QString points = PointsHeld(session_, c);
  if (const Boundary* faulty = FaultyBoundary())
    return QString("Cluster %1 holds %2. %3").arg(c).arg(points, FromText(FaultsOf(*faulty).Sentence()));
  const auto end = cluster.Boundaries.begin() + cluster.BoundaryCount;
  const bool here = std::any_of(cluster.Boundaries.begin(), end,
                                [this](const Boundary& boundary) { return OnView(session_, boundary); });
  return QString(here ? "Cluster %1 holds %2. Ctrl mends its boundary. A polygon drawn here replaces its boundary; in "
                        "another projection "
                        "it narrows the cluster."
                      : "Cluster %1 holds %2. A polygon drawn here narrows it.")
      .arg(c)
      .arg(points);
}

QString Projections::PolygonHint() const {
  const int c = session_.CurrentCluster;
  if (const PolygonFaults faults = FaultsOf(BoundaryOf(session_, *open_)); faults.Any())
    return QString("Cluster %1: %2 Esc cancels the polygon.").arg(c).arg(FromText(faults.Sentence()));
  return QString(cross_->Shown() ? "Cluster %1: Space for the next corner, Enter for the last one. Esc cancels the "
                                   "polygon, Backspace takes back a corner."
                                 : "Cluster %1: left click for the next corner, right click for the last one. Esc "
                                   "cancels the polygon, Backspace takes back a corner.")
      .arg(c);
}

void Projections::ShowHint() {
  Say(Hint());
}

void Projections::SetOptions(const ProjectionOptions& options) {
  const bool modeChanged = std::exchange(options_, options).Zoom != options.Zoom;
  if (!modeChanged) return;
  surface_->setCursor(options_.Zoom ? Qt::SizeAllCursor : Qt::CrossCursor);
  ShowHint();
}

void Projections::ArmCentre(bool armed) {
  centreArmed_ = armed;
  ShowHint();
}

void Projections::ShowCluster() {
  const bool open = open_.has_value();
  AbandonIfElsewhere(session_, open_);
  mender_->CancelIfElsewhere();
  ShowPolygon();
  ShowHint();
  if (open && !open_) Say("The open polygon was abandoned as drawn so far. Undo reverts it.");
}

bool Projections::CanMend() const {
  return PointsLoaded(session_) && surface_->Scale().Drawable() && !options_.Zoom && !centreArmed_ && !open_ &&
         session_.CurrentCluster != 0;
}

bool Projections::TakeBackDrag() {
  const bool dragging = mender_->Dragging();
  mender_->Cancel();
  return dragging;
}

void Projections::Form_MouseDown(Qt::MouseButton button, Vertex at, Qt::KeyboardModifiers keys) {
  if (bench_.Working() || mender_->Dragging()) return;
  if (!PointsLoaded(session_) || !surface_->Scale().Drawable()) {
    ShowHint();
    return;
  }
  if (button == Qt::MiddleButton) {
    zoomSteps_.Keep(session_);
    held_ = at;
    return;
  }
  if (keys.testFlag(Qt::ControlModifier) && CanMend() && mender_->Press(button, at, keys)) return;
  if (!options_.Zoom) {
    if (centreArmed_ && button == Qt::LeftButton)
      emit CenterChosen(at);
    else
      ClickCorner(at, button);
    return;
  }
  if (button != Qt::LeftButton) return;
  zoomAnchor_ = at;
  surface_->SetZoomAnchor(zoomAnchor_);
}

void Projections::ClickCorner(Vertex at, Qt::MouseButton button) {
  if (button != Qt::LeftButton && button != Qt::RightButton) return;
  if (button == Qt::RightButton && !open_) return;
  ClickOutcome outcome;
  if (button == Qt::LeftButton)
    outcome = AddVertex(session_, open_, at);
  else if (!Close(at, outcome))
    return;
  ShowPolygon();
  emit BoundariesChanged();
  if (outcome.Closed) Redraw();
  ShowHint();
  if (!outcome.Refused.empty()) Say(QString::fromStdString(outcome.Refused));
}

bool Projections::Close(Vertex at, ClickOutcome& outcome) {
  try {
    bench_.ChangeCut([&](const Progress& progress) { outcome = ClosePolygon(session_, open_, at, progress); });
    return true;
  } catch (const Interrupted&) {
    bench_.Say("Stopped; the polygon is open as before.");
    return false;
  }
}

void Projections::ShowPosition(Vertex at) {
  const QString where = QString("%1 = %2    %3 = %4")
                            .arg(QString::fromStdString(session_.ParameterNames[session_.XParameter]),
                                 QString::fromStdString(SingleText(at.X)),
                                 QString::fromStdString(session_.ParameterNames[session_.YParameter]),
                                 QString::fromStdString(SingleText(at.Y)));
  pointer_->setText(where);
}

void Projections::Form_MouseMove(Vertex at, Qt::KeyboardModifiers keys) {
  ShowPosition(at);
  if (bench_.Working()) return;
  mender_->Hold(keys.testFlag(Qt::ControlModifier) && CanMend());
  mender_->Move(at);
  if (!held_) return;
  if (MoveView(session_, {held_->X - at.X, held_->Y - at.Y})) Redraw();
}

void Projections::Form_MouseWheel(double notches, Vertex at) {
  constexpr double kFactor = 0.8;
  if (bench_.Working() || !PointsLoaded(session_) || !surface_->Scale().Drawable()) return;
  zoomSteps_.Keep(session_);
  if (ZoomAbout(session_, at, std::pow(kFactor, notches))) Redraw();
}

void Projections::ZoomBack() {
  if (bench_.Working() || !PointsLoaded(session_)) return;
  if (zoomSteps_.Back(session_))
    Redraw();
  else
    Say("There is no earlier zoom of this projection.");
}

void Projections::Form_MouseUp(Qt::MouseButton button, Vertex at) {
  if (button == Qt::MiddleButton) held_.reset();
  if (button == Qt::LeftButton && mender_->Dragging() && !bench_.Working()) mender_->Release(at);
  if (!zoomAnchor_ || button != Qt::LeftButton) return;
  const Vertex anchor = *zoomAnchor_;
  const View scale = surface_->Scale();
  zoomAnchor_.reset();
  surface_->SetZoomAnchor({});
  if (bench_.Working()) return;
  const bool dragged = std::abs(scale.PixelX(at.X) - scale.PixelX(anchor.X)) >= 1 &&
                       std::abs(scale.PixelY(at.Y) - scale.PixelY(anchor.Y)) >= 1;
  if (dragged) zoomSteps_.Keep(session_);
  if (!dragged || !ZoomTo(session_, anchor, at)) {
    ShowHint();
    return;
  }
  Redraw();
}

}  // namespace pallomir
