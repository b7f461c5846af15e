#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>
#include <optional>

#include "gui/forms/plot_surface.h"
#include "gui/forms/projection_picture.h"
#include "gui/forms/workbench.h"
#include "gui/viewers/point_layer.h"
#include "pallomir/clusters/overlap.h"
#include "pallomir/projection/draw_points.h"
#include "pallomir/projection/polygon.h"
#include "pallomir/projection/uniform_numbers.h"
#include "pallomir/projection/zoom_steps.h"
#include "pallomir/session/session.h"

class QLabel;

namespace pallomir {

class AxisRuler;
class BoundaryMender;
class KeyCross;

/// How the projection is drawn and what the mouse does in it; the display panel sets it.
struct ProjectionOptions {
  bool Zoom = false;
  bool DrawBoundaries = true;
  bool AxesOff = false;
  /// Points by their density instead of one colour a pixel.
  bool Density = false;
  /// Number of points between two processings of events, at least 1.
  size_t Batch = 1;
  /// The part of the points to draw; empty for all.
  std::optional<float> DownsampleFraction;
  /// Text shown with the number of points drawn.
  QString CountNote;
};

/// The loaded points as a scatter plot of two parameters, for drawing boundaries and zooming. Other windows can be
/// docked beside the plot.
class Projections : public QMainWindow {
  Q_OBJECT

 public:
  explicit Projections(Workbench& bench);

  /// Takes effect at the next redraw; the mouse mode at once.
  void SetOptions(const ProjectionOptions& options);
  const ProjectionOptions& Options() const { return options_; }
  /// Ranges of records to draw, as in DrawSettings; takes effect at the next redraw.
  void SetRecordRanges(decltype(DrawSettings::RecordRanges) ranges) { recordRanges_ = std::move(ranges); }
  const auto& RecordRanges() const { return recordRanges_; }
  /// Sets whether the next left click is the centre of the maze.
  void ArmCentre(bool armed);

  /// Redraws the view in the session's current projection. Throws CommandError if no points are loaded. A newer redraw,
  /// started by an event processed meanwhile, ends an older one.
  void Redraw();

  /// For settings that take effect at the next redraw: does nothing if no points are loaded.
  void RedrawIfLoaded() {
    if (PointsLoaded(session_)) Redraw();
  }

  /// Draws the loaded points one at a time, in order, at a given number per second; any other redraw shows all at once.
  void StartSlowRedraw();
  void StopSlowRedraw();
  /// A redraw is running, and processes events.
  bool Drawing() const { return drawing_; }
  bool SlowRedrawRunning() const { return slow_.isActive(); }

  /// Blinks points over the current image, alternately white and black at each Blink(), until StopOverlap().
  void StartOverlap(OverlapPoints points);
  void StopOverlap();
  void Blink();
  bool OverlapRunning() const { return overlap_.has_value(); }

  bool PolygonOpen() const { return open_.has_value(); }
  void TakeBackPolygon(const Progress& progress) { pallomir::TakeBackPolygon(session_, open_, progress); }

  /// Stops drawing an open polygon; the part drawn so far stays in the table.
  void GiveUpPolygon();

  /// Removes the image; the data are kept.
  void Clear();

  /// The projection as a redraw would show it, for a document. Throws CommandError if no points are loaded.
  ProjectionPicture Picture();

  /// Ends any running redraw.
  void Supersede();

  /// Shows in the status line what the mouse does now.
  void ShowHint();

  /// Another cluster was chosen: stops drawing an open polygon of the previous one.
  void ShowCluster();

  /// Takes back the drag of a boundary that is being mended; false if there is none.
  bool TakeBackDrag();
  /// Hides the cross that keys move.
  void HideCross();

 signals:
  /// The user closed the window.
  void Hidden();
  /// A redraw has ended.
  void Redrawn();
  /// A click began, extended or closed a polygon, or a boundary was mended: the boundary table changed.
  void BoundariesChanged();
  /// A key took back the first corner of the open polygon, which is to be cancelled.
  void PolygonCancelled();
  void OverlapEnded();
  /// A left click chose the centre of the maze.
  void CenterChosen(Vertex at);
  /// A key steps to a neighbouring parameter of an axis.
  void StepAxes(int x, int y);
  /// A key steps to the next useful pair of parameters, or back.
  void StepPairs(int direction);
  /// A key asks for the density instead of the points, or back.
  void DensityAsked();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

 private:
  void ConnectSurface();
  void ConnectMender();
  void Form_MouseDown(Qt::MouseButton button, Vertex at, Qt::KeyboardModifiers keys);
  void Form_MouseMove(Vertex at, Qt::KeyboardModifiers keys);
  void Form_MouseUp(Qt::MouseButton button, Vertex at);
  // What a key does: false if nothing.
  bool CrossKey(const QKeyEvent& key);
  bool PolygonKey(const QKeyEvent& key);
  bool ViewKey(const QKeyEvent& key);
  /// Sets a corner at the cross.
  void ClickCross();
  void TakeBackCorner();
  /// Sets the last corner and closes the open polygon.
  void CloseByKey(Vertex at);
  /// A wheel over the surface zooms about the pointer.
  void Form_MouseWheel(double notches, Vertex at);
  /// Steps back to the ranges before the last zoom or move of this projection.
  void ZoomBack();
  /// Whether Ctrl mends boundaries now.
  bool CanMend() const;
  /// Closes the open polygon; false, with everything restored, if the user stopped it.
  bool Close(Vertex at, ClickOutcome& outcome);
  /// A click that begins, extends or closes a polygon.
  void ClickCorner(Vertex at, Qt::MouseButton button);
  /// False if a newer image, or the program's end, came meanwhile.
  bool DrawAllPoints();
  /// Side of the square drawn for a pixel, in device pixels.
  int DevicePixel() const;
  PointLayer::Looks PointLooks() const {
    return options_.Density ? PointLayer::Looks::Density : PointLayer::Looks::Points;
  }
  void BeginPicture();
  void ShowPicture();
  void ShowRulers();
  /// Shows an empty image. Until there is one of points, the scale follows the current ranges and size.
  void ShowBlank();
  /// The current cluster's boundary in this projection, if its faults are to be shown.
  const Boundary* FaultyBoundary() const;
  void ShowPolygon();
  void ShowOverlap();
  QString Hint() const;
  DrawSettings Settings() const { return {options_.DownsampleFraction, recordRanges_}; }
  QString PolygonHint() const;
  void ShowPosition(Vertex at);
  void Say(const QString& text);
  void ShowCount();
  void SlowTick();

  Workbench& bench_;
  Session& session_;
  ProjectionOptions options_;
  decltype(DrawSettings::RecordRanges) recordRanges_;
  bool centreArmed_ = false;
  PlotSurface* surface_;
  AxisRuler* xRuler_;
  AxisRuler* yRuler_;
  BoundaryMender* mender_;
  KeyCross* cross_;
  QLabel* message_;
  QLabel* pointer_;
  QLabel* count_;
  QTimer resized_;
  QTimer slow_;

  UniformNumbers random_;
  std::optional<OpenPolygon> open_;
  std::optional<Vertex> zoomAnchor_;
  /// The value that the middle button holds under the pointer.
  std::optional<Vertex> held_;
  ZoomSteps zoomSteps_;
  View view_;
  QImage ground_;
  PointLayer points_;
  /// The overlap display.
  struct Overlap {
    OverlapPoints Points;
    /// Whether the points are white now.
    bool White = false;
    /// The image of the first `Next` points, for a scale and a point size.
    std::optional<Raster> Drawn{};
    View Scale{};
    float PointSize = 0;
    size_t Next = 0;
  };
  std::optional<Overlap> overlap_;
  /// Many overlapping points are drawn over several timer events.
  QTimer overlapTurn_;
  bool drawn_ = false;
  /// Counts the images begun; a redraw that finds another number has been superseded.
  uint64_t generation_ = 0;
  bool drawing_ = false;
  /// A newer redraw was requested while one is running.
  bool startOver_ = false;
  size_t slowPoint_ = 0;
  QElapsedTimer slowClock_;
  /// The fraction of a point left over from the last tick.
  double slowRest_ = 0;
  size_t shown_ = 0;
};

}  // namespace pallomir
