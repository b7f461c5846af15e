#include "gui/forms/boundary_mender.h"

#include "gui/controls/toolkit_values.h"
#include "pallomir/files/error.h"
#include "pallomir/files/number_text.h"

namespace pallomir {

BoundaryMender::BoundaryMender(Workbench& bench, PlotSurface& surface, QObject* parent)
    : QObject(parent), bench_(bench), session_(bench.TheSession()), surface_(surface) {
  count_.setSingleShot(true);
  count_.setInterval(0);
  connect(&count_, &QTimer::timeout, this, &BoundaryMender::SayCount);
}

bool BoundaryMender::BoundariesHere() const {
  const Cluster& cluster = session_.Clusters[session_.CurrentCluster];
  const auto end = cluster.Boundaries.begin() + cluster.BoundaryCount;
  return std::any_of(cluster.Boundaries.begin(), end,
                     [this](const Boundary& boundary) { return OnView(session_, boundary); });
}

void BoundaryMender::Hold(bool held) {
  held = held && BoundariesHere();
  if (held == held_) return;
  held_ = held;
  emit LooksChanged();
}

double BoundaryMender::Reach() const {
  return 7 * surface_.devicePixelRatioF();
}

const Boundary& BoundaryMender::BoundaryOf(const Grip& grip) const {
  return session_.Clusters[session_.CurrentCluster].Boundaries[grip.Boundary];
}

bool BoundaryMender::Press(Qt::MouseButton button, Vertex at, Qt::KeyboardModifiers keys) {
  if (!BoundariesHere()) return false;
  Hold(true);
  const View scale = surface_.Scale();
  const bool whole = keys.testFlag(Qt::ShiftModifier) && button == Qt::LeftButton;
  const auto grip = whole ? WholeAt(session_, scale, at, Reach()) : GripAt(session_, scale, at, Reach());
  if (button == Qt::LeftButton && grip)
    Begin(*grip, at);
  else if (button == Qt::RightButton && grip && grip->Held == Grip::Part::Corner)
    DeleteCorner(*grip);
  else
    emit Said(Hint());
  return true;
}

void BoundaryMender::Begin(const Grip& grip, Vertex at) {
  const Boundary& boundary = BoundaryOf(grip);
  if (const std::string refused = RefusedCorner(boundary); grip.Held == Grip::Part::Edge && !refused.empty()) {
    emit Said(FromText(refused));
    return;
  }
  drag_.emplace(Drag{grip, session_.CurrentCluster, boundary, boundary, at,
                     LiveCount(session_, session_.CurrentCluster, grip.Boundary)});
}

void BoundaryMender::Move(Vertex at) {
  CancelIfElsewhere();
  if (!drag_) return;
  drag_->Now = at == drag_->From ? drag_->Before : Dragged(drag_->Before, drag_->Held, drag_->From, at);
  emit LooksChanged();
  if (!count_.isActive()) count_.start();
}

void BoundaryMender::SayCount() {
  if (drag_)
    emit Said(QString("Cluster %1 would hold %2 points. Esc takes the drag back.")
                  .arg(drag_->Cluster)
                  .arg(FromText(Grouped(drag_->Points.Count(drag_->Now)))));
}

void BoundaryMender::Release(Vertex at) {
  Move(at);
  if (!drag_) return;
  const Drag drag = *drag_;
  drag_.reset();
  if (drag.Now == drag.Before) {
    emit LooksChanged();
    emit Said(Hint());
  } else {
    Replace(drag.Cluster, drag.Held.Boundary, drag.Now);
  }
}

void BoundaryMender::DeleteCorner(const Grip& grip) {
  const Boundary& boundary = BoundaryOf(grip);
  if (const std::string refused = RefusedDeletion(boundary); !refused.empty())
    emit Said(FromText(refused));
  else
    Replace(session_.CurrentCluster, grip.Boundary, WithoutCorner(boundary, grip.Corner));
}

void BoundaryMender::Replace(int c, int b, const Boundary& mended) {
  try {
    bench_.ChangeCut([&](const Progress& progress) { MendBoundary(session_, c, b, mended, progress); });
    emit Mended();
  } catch (const Interrupted&) {
    emit LooksChanged();
    emit Said("Stopped; the boundary is as before.");
  }
}

void BoundaryMender::Cancel() {
  if (!drag_) return;
  drag_.reset();
  emit LooksChanged();
  emit Said("The boundary is as before.");
}

void BoundaryMender::CancelIfElsewhere() {
  if (!drag_) return;
  const Cluster& cluster = session_.Clusters[drag_->Cluster];
  const bool there = drag_->Cluster == session_.CurrentCluster && drag_->Held.Boundary < cluster.BoundaryCount &&
                     cluster.Boundaries[drag_->Held.Boundary] == drag_->Before && OnView(session_, drag_->Before);
  if (!there) Cancel();
}

std::vector<ShownPolygon> BoundaryMender::Shown() const {
  std::vector<ShownPolygon> shown;
  if (!held_ && !drag_) return shown;
  const Cluster& cluster = session_.Clusters[session_.CurrentCluster];
  const QColor colour = ScreenColour(session_.Colours[session_.CurrentCluster]);
  for (int b = 0; b < cluster.BoundaryCount; ++b) {
    const bool dragged = drag_ && drag_->Held.Boundary == b;
    if (OnView(session_, cluster.Boundaries[b]))
      shown.push_back({dragged ? drag_->Now : cluster.Boundaries[b], colour, ShownPolygon::Looks::Handles});
  }
  return shown;
}

QString BoundaryMender::Hint() const {
  return QString(
             "Cluster %1: drag a corner to move it, or an edge for a new corner; right click a corner to delete it. "
             "With Shift, drag the whole boundary.")
      .arg(session_.CurrentCluster);
}

}  // namespace pallomir
