#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// A polygon shown over the image: while it is drawn or mended, and afterwards if the inside test accepts an area other
/// than the polygon's.
struct ShownPolygon {
  enum class Looks {
    /// Being drawn: its corners, and a line from the last one to the pointer.
    Open,
    /// Its outline, with a handle at each corner.
    Handles,
    /// Only what is wrong with it.
    Faults
  };
  Boundary Shape;
  QColor Colour;
  Looks As = Looks::Faults;
};

/// The plot area, which spans both axes completely. It keeps the finished image and paints moving items over it (the
/// open polygon, the rubber band, the zoom rectangle) without redrawing any points.
class PlotSurface : public QWidget {
  Q_OBJECT

 public:
  explicit PlotSurface(QWidget* parent);

  /// Size in device pixels, at least 1 x 1.
  QSize DeviceSize() const;

  /// Sets an image of DeviceSize() device pixels.
  void SetPicture(QImage picture, const View& view);

  /// Sets an image without content or scale: `scale` is called whenever the scale is needed.
  void SetBlank(QImage picture, std::function<View()> scale);

  /// The mapping between positions on the surface and parameter values.
  View Scale() const { return scale_ ? scale_() : View{}; }

  /// The text shown without an image: a heading and lines below it.
  void SetNotice(const QString& heading, const QStringList& lines);

  /// The polygons over the image; of one with faults, the part that counts is shaded and the faulty corners are marked.
  void SetPolygons(std::vector<ShownPolygon> polygons);

  /// The image that blinks over the surface, in device pixels; null for none.
  void SetBlink(QImage image);

  /// The value at a position in logical pixels, and at the pointer.
  Vertex ValueAt(QPointF position) const;
  Vertex Pointer() const { return ValueAt(pointer_); }

  /// Shows a cross at this position, in logical pixels, to which the open polygon's line runs instead of to the
  /// pointer; empty hides it.
  void SetCross(std::optional<QPointF> at);

  /// Shows the zoom rectangle from this anchor; empty hides it.
  void SetZoomAnchor(std::optional<Vertex> anchor);

 signals:
  /// The position is in parameter units.
  void Pressed(Qt::MouseButton button, Vertex at, Qt::KeyboardModifiers keys);
  void Moved(Vertex at, Qt::KeyboardModifiers keys);
  void Released(Qt::MouseButton button, Vertex at);
  /// Notches of the wheel away from the user.
  void Wheeled(double notches, Vertex at);
  void Left();
  void Resized();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QPointF PositionOf(Vertex vertex) const;
  void PaintNotice(QPainter& painter) const;
  /// Draws the polygons on the image.
  void Compose(const View& scale);
  void ComposePolygon(const ShownPolygon& polygon, const View& scale);
  const ShownPolygon* OpenPolygon() const;
  void PaintRubberBand(QPainter& painter) const;
  void PaintZoomRectangle(QPainter& painter) const;
  void PaintCross(QPainter& painter) const;

  std::function<View()> scale_;
  QImage picture_;
  /// The image with the polygons, and the scale for which it was drawn; empty if it must be drawn again.
  QImage shown_;
  std::optional<View> composed_;
  QString noticeHeading_;
  QStringList noticeLines_;
  QImage blink_;
  std::vector<ShownPolygon> polygons_;
  std::optional<Vertex> zoomAnchor_;
  std::optional<QPointF> cross_;
  QPointF pointer_;
  QPointF pressed_;
};

}  // namespace pallomir
