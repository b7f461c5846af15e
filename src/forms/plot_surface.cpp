#include "forms/plot_surface.h"

#include <QtWidgets>

namespace pallomir {

PlotSurface::PlotSurface(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::CrossCursor);
  setMinimumSize(200, 200);
}

QSize PlotSurface::DeviceSize() const {
  const QSizeF exact = QSizeF(size()) * devicePixelRatioF();
  return exact.toSize().expandedTo(QSize(1, 1));
}

void PlotSurface::SetPicture(QImage picture, const View& view) {
  picture_ = std::move(picture);
  picture_.setDevicePixelRatio(devicePixelRatioF());
  view_ = view;
  update();
}

void PlotSurface::SetNotice(const QString& heading, const QStringList& lines) {
  noticeHeading_ = heading;
  noticeLines_ = lines;
  update();
}

void PlotSurface::SetPolygon(std::vector<Vertex> vertices, QColor colour) {
  polygon_ = std::move(vertices);
  polygonColour_ = colour;
  update();
}

void PlotSurface::SetZoomAnchor(std::optional<Vertex> anchor) {
  zoomAnchor_ = anchor;
  if (anchor) pointer_ = *anchor;
  update();
}

void PlotSurface::SetBlink(QImage image) {
  blink_ = std::move(image);
  update();
}

Vertex PlotSurface::ValueAt(QPointF position) const {
  const double ratio = devicePixelRatioF();
  return {static_cast<float>(view_.ValueX(position.x() * ratio)),
          static_cast<float>(view_.ValueY(position.y() * ratio))};
}

QPointF PlotSurface::PositionOf(Vertex vertex) const {
  const QPointF centre(view_.PixelX(vertex.X) + 0.5, view_.PixelY(vertex.Y) + 0.5);
  return centre / devicePixelRatioF();
}

void PlotSurface::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (picture_.isNull()) {
    painter.fillRect(rect(), Qt::black);
    PaintNotice(painter);
    return;
  }
  const QRectF whole(QPointF(), QSizeF(picture_.size()) / picture_.devicePixelRatio());
  painter.drawImage(whole, picture_);
  if (!blink_.isNull()) painter.drawImage(whole, blink_);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintPolygon(painter);
  PaintZoomRectangle(painter);
}

void PlotSurface::PaintNotice(QPainter& painter) const {
  QFont heading = font();
  heading.setPointSizeF(heading.pointSizeF() * 1.4);
  const int lineHeight = fontMetrics().lineSpacing() + 6;
  int widest = QFontMetrics(heading).horizontalAdvance(noticeHeading_);
  for (const QString& line : noticeLines_) widest = std::max(widest, fontMetrics().horizontalAdvance(line));
  const int left = std::max((width() - widest) / 2, 10);
  int baseline = height() / 2 - lineHeight * static_cast<int>(noticeLines_.size()) / 2;
  painter.setFont(heading);
  painter.setPen(QColor("#e8ebf1"));
  painter.drawText(left, baseline, noticeHeading_);
  painter.setFont(font());
  painter.setPen(QColor("#a3adbd"));
  baseline += lineHeight / 2;
  for (const QString& line : noticeLines_) painter.drawText(left, baseline += lineHeight, line);
}

void PlotSurface::PaintPolygon(QPainter& painter) const {
  if (polygon_.empty() || !view_.Drawable()) return;
  QPolygonF line;
  for (const Vertex& vertex : polygon_) line << PositionOf(vertex);
  painter.setPen(QPen(polygonColour_, 1.5));
  painter.drawPolyline(line);
  painter.setBrush(polygonColour_);
  for (const QPointF& corner : line) painter.drawEllipse(corner, 2, 2);
  painter.setPen(QPen(polygonColour_, 1, Qt::DashLine));
  painter.drawLine(line.back(), PositionOf(pointer_));
}

void PlotSurface::PaintZoomRectangle(QPainter& painter) const {
  if (!zoomAnchor_ || !view_.Drawable()) return;
  const QRectF rectangle = QRectF(PositionOf(*zoomAnchor_), PositionOf(pointer_)).normalized();
  painter.setPen(QPen(QColor(130, 170, 255), 1));
  painter.setBrush(QColor(130, 170, 255, 40));
  painter.drawRect(rectangle);
}

void PlotSurface::mousePressEvent(QMouseEvent* event) {
  pointer_ = ValueAt(event->position());
  emit Pressed(event->button(), pointer_);
}

void PlotSurface::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = ValueAt(event->position());
  if (!polygon_.empty() || zoomAnchor_) update();
  emit Moved(pointer_);
}

void PlotSurface::mouseReleaseEvent(QMouseEvent* event) {
  pointer_ = ValueAt(event->position());
  emit Released(event->button(), pointer_);
}

void PlotSurface::leaveEvent(QEvent*) {
  emit Left();
}

void PlotSurface::resizeEvent(QResizeEvent*) {
  emit Resized();
}

}  // namespace pallomir
