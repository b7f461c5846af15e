#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "pallomir/projection/view.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// A polygon shown over the picture: while it is drawn, and afterwards where the inside test takes less of it, or more,
/// than its area.
struct ShownPolygon {
  Boundary Shape;
  QColor Colour;
  bool Open = false;
};

/// The area whose whole extent spans the two axes. It keeps the finished picture and paints what moves over it (the
/// open polygon, the rubber band, the zoom rectangle) without drawing a point again.
class PlotSurface : public QWidget {
  Q_OBJECT

 public:
  explicit PlotSurface(QWidget* parent);

  /// Size in device pixels, at least 1 x 1.
  QSize DeviceSize() const;

  /// A picture of DeviceSize() device pixels.
  void SetPicture(QImage picture, const View& view);

  /// A picture that shows nothing and has no scale of its own: `scale` tells it whenever it is asked for.
  void SetBlank(QImage picture, std::function<View()> scale);

  /// What the positions on the surface mean.
  View Scale() const { return scale_ ? scale_() : View{}; }

  /// What is read there while there is no picture: a heading, and lines below it.
  void SetNotice(const QString& heading, const QStringList& lines);

  /// The polygon over the picture, if any: an open one with a line from its last vertex to the pointer, one with faults
  /// with its part that counts shaded and the corners at fault marked.
  void SetPolygon(std::optional<ShownPolygon> polygon);

  /// What blinks over the picture, in device pixels; a null image for nothing.
  void SetBlink(QImage image);

  /// The zoom rectangle, by its anchor; nothing hides it.
  void SetZoomAnchor(std::optional<Vertex> anchor);

 signals:
  /// The position is in parameter units.
  void Pressed(Qt::MouseButton button, Vertex at);
  void Moved(Vertex at);
  void Released(Qt::MouseButton button, Vertex at);
  void Left();
  void Resized();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Vertex ValueAt(QPointF position) const;
  QPointF PositionOf(Vertex vertex) const;
  void PaintNotice(QPainter& painter) const;
  /// Lays the polygon on the picture.
  void Compose(const View& scale);
  void PaintRubberBand(QPainter& painter) const;
  void PaintZoomRectangle(QPainter& painter) const;

  std::function<View()> scale_;
  QImage picture_;
  /// The picture with the polygon on it, and the scale at which that was laid there; nothing when it is to be again.
  QImage shown_;
  std::optional<View> composed_;
  QString noticeHeading_;
  QStringList noticeLines_;
  QImage blink_;
  std::optional<ShownPolygon> polygon_;
  std::optional<Vertex> zoomAnchor_;
  QPointF pointer_;
  QPointF pressed_;
};

}  // namespace pallomir
