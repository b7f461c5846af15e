#pragma once

#include <QTimer>
#include <optional>
#include <vector>

#include "gui/forms/plot_surface.h"
#include "gui/forms/workbench.h"
#include "pallomir/clusters/live_count.h"
#include "pallomir/projection/mend_boundary.h"

namespace pallomir {

/// Mends the chosen cluster's boundaries on the displayed projection: with Ctrl held they have handles, by which a drag
/// moves a corner, makes a new one in an edge, or moves a whole boundary (with Shift). The boundary table changes when
/// the drag ends.
class BoundaryMender : public QObject {
  Q_OBJECT

 public:
  BoundaryMender(Workbench& bench, PlotSurface& surface, QObject* parent);

  /// Shows or hides the handles; a drag keeps them.
  void Hold(bool held);
  bool Holding() const { return held_; }

  /// What Ctrl and a press do. Returns false if the cluster has no boundary here: nothing can be mended.
  bool Press(Qt::MouseButton button, Vertex at, Qt::KeyboardModifiers keys);
  void Move(Vertex at);
  void Release(Vertex at);

  bool Dragging() const { return drag_.has_value(); }
  /// Ends a drag without a change.
  void Cancel();
  /// Ends a drag whose boundary has been changed meanwhile, or is no longer on view.
  void CancelIfElsewhere();

  /// The boundaries with handles, as they would be if the drag ended now.
  std::vector<ShownPolygon> Shown() const;
  /// What the keys and buttons do now.
  QString Hint() const;
  /// Whether the chosen cluster has a boundary in this projection.
  bool BoundariesHere() const;

 signals:
  /// What Shown() returns is different now.
  void LooksChanged();
  /// The boundary table changed.
  void Mended();
  void Said(const QString& text);

 private:
  struct Drag {
    Grip Held;
    int16_t Cluster;
    Boundary Before, Now;
    Vertex From;
    LiveCount Points;
  };
  void Begin(const Grip& grip, Vertex at);
  void DeleteCorner(const Grip& grip);
  void Replace(int c, int b, const Boundary& mended);
  void SayCount();
  const Boundary& BoundaryOf(const Grip& grip) const;
  double Reach() const;

  Workbench& bench_;
  Session& session_;
  PlotSurface& surface_;
  bool held_ = false;
  std::optional<Drag> drag_;
  /// Moves that arrive together are counted once.
  QTimer count_;
};

}  // namespace pallomir
