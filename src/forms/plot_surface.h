#pragma once

#include <QImage>
#include <QWidget>
#include <optional>
#include <vector>

#include "projection/view.h"
#include "session/session.h"

namespace pallomir {

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

  /// What is read there while there is no picture: a heading, and lines below it.
  void SetNotice(const QString& heading, const QStringList& lines);

  /// The polygon that is being drawn and its colour; empty for none. A line leads from its last vertex to the pointer.
  void SetPolygon(std::vector<Vertex> vertices, QColor colour);

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
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Vertex ValueAt(QPointF position) const;
  QPointF PositionOf(Vertex vertex) const;
  void PaintNotice(QPainter& painter) const;
  void PaintPolygon(QPainter& painter) const;
  void PaintZoomRectangle(QPainter& painter) const;

  QImage picture_;
  QString noticeHeading_;
  QStringList noticeLines_;
  QImage blink_;
  View view_;
  std::vector<Vertex> polygon_;
  QColor polygonColour_;
  std::optional<Vertex> zoomAnchor_;
  Vertex pointer_;
};

}  // namespace pallomir
