#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "gui/forms/plot_surface.h"
#include "pallomir/clusters/overlap.h"
#include "pallomir/projection/draw_points.h"
#include "pallomir/projection/polygon.h"
#include "pallomir/projection/uniform_numbers.h"
#include "pallomir/session/session.h"
#include "pallomir/session/work_pace.h"
#include "pallomir/session/world.h"

class QLabel;

namespace pallomir {

class AxisRuler;

/// What the projection view takes from the main form whenever it draws or is clicked.
struct ProjectionOptions {
  bool Zoom = false;
  bool DrawBoundaries = true;
  bool AxesOff = false;
  /// The next left click is the centre of the maze.
  bool CenterArmed = false;
  /// A longer piece of work is running: the mouse does nothing.
  bool Busy = false;
  /// Points between two looks at the user interface, at least 1.
  size_t Batch = 1;
  /// What has to be said beside the number of points drawn.
  QString CountNote;
  DrawSettings Drawing;
};

/// The loaded points as a scatter plot of two parameters, where boundaries are drawn and zoomed into.
class Projections : public QWidget {
  Q_OBJECT

 public:
  /// Runs a change of the cut that may take long; false when the user stopped it, and all is as it was.
  using CutChange = std::function<bool(const std::function<void(const Progress&)>& change)>;

  Projections(Session& session, World& world, std::function<ProjectionOptions()> options, CutChange changeCut);

  /// Clears and repaints the view with the session's present projection. Throws CommandError when no points are
  /// loaded. A newer redraw, begun by whatever the user did meanwhile, ends an older one.
  void Redraw();

  /// Draws the loaded points one at a time, in their order, so many a second; any other redraw shows all at once.
  void StartSlowRedraw();
  void StopSlowRedraw();
  bool SlowRedrawRunning() const { return slow_.isActive(); }

  /// Blinks points over whatever picture is on view, white and black in turn at each Blink(), until StopOverlap().
  void StartOverlap(OverlapPoints points);
  void StopOverlap();
  void Blink();
  bool OverlapRunning() const { return overlap_.has_value(); }

  bool PolygonOpen() const { return open_.has_value(); }
  void TakeBackPolygon(const Progress& progress) { pallomir::TakeBackPolygon(session_, open_, progress); }

  /// An open polygon is given up; it stays in the table as drawn so far.
  void GiveUpPolygon();

  /// Takes the picture away; the data stay.
  void Clear();

  /// Ends whatever redraw is running.
  void Supersede();

  /// Says in the status line what the mouse would do now.
  void ShowHint();

  /// The mouse mode has changed: the pointer shows it.
  void ShowMode();

  /// Another cluster was chosen: an open polygon of the earlier one is given up.
  void ShowCluster();

 signals:
  /// The user has closed the window.
  void Hidden();
  /// A click began, extended or closed a polygon: the boundary table has changed.
  void BoundariesChanged();
  void OverlapEnded();
  /// A left click while the centre of the maze was asked for.
  void CenterChosen(Vertex at);
  /// A key that steps to a neighbouring parameter of an axis.
  void StepAxes(int x, int y);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Form_MouseDown(Qt::MouseButton button, Vertex at);
  void Form_MouseMove(Vertex at);
  void Form_MouseUp(Qt::MouseButton button, Vertex at);
  /// A click that begins, extends or closes a polygon.
  void ClickCorner(Vertex at, Qt::MouseButton button);
  /// False when a newer picture, or the end, came meanwhile.
  bool DrawAllPoints();
  /// Side of the square that stands for a pixel.
  int DevicePixel() const;
  void BeginPicture();
  void ShowPicture();
  void ShowRulers();
  /// An empty picture. While there is none of points, the scale is that of the ranges and the size now.
  void ShowBlank();
  /// The boundary of the current cluster that is on view, if its faults are to be shown.
  const Boundary* FaultyBoundary() const;
  void ShowPolygon();
  void ShowOverlap();
  QString Hint() const;
  void Say(const QString& text);
  void ShowCount();
  void SlowTick();

  Session& session_;
  World& world_;
  std::function<ProjectionOptions()> options_;
  CutChange changeCut_;
  PlotSurface* surface_;
  AxisRuler* xRuler_;
  AxisRuler* yRuler_;
  QLabel* message_;
  QLabel* pointer_;
  QLabel* count_;
  QTimer resized_;
  QTimer slow_;

  UniformNumbers random_;
  std::optional<OpenPolygon> open_;
  std::optional<Vertex> zoomAnchor_;
  View view_;
  QImage ground_;
  Raster raster_;
  /// The overlap display.
  struct Overlap {
    OverlapPoints Points;
    /// Whether they are white now.
    bool White = false;
    /// The picture of the first `Next` of them, for a scale and a point size.
    std::optional<Raster> Drawn{};
    View Scale{};
    float PointSize = 0;
    size_t Next = 0;
  };
  std::optional<Overlap> overlap_;
  /// Many overlapping points are drawn in turns.
  QTimer overlapTurn_;
  bool drawn_ = false;
  /// Counts pictures begun; a redraw that finds another number has been superseded.
  uint64_t generation_ = 0;
  bool drawing_ = false;
  /// A newer redraw was asked for while one runs.
  bool startOver_ = false;
  size_t slowPoint_ = 0;
  QElapsedTimer slowClock_;
  /// The part of a point that was due at the last tick.
  double slowRest_ = 0;
  size_t shown_ = 0;
};

}  // namespace pallomir
