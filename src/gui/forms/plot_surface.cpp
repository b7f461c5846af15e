#include "gui/forms/plot_surface.h"

#include <QtWidgets>

#include "gui/viewers/picture.h"
#include "pallomir/projection/counted_part.h"

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
  SetBlank(std::move(picture), [view] { return view; });
}

void PlotSurface::SetBlank(QImage picture, std::function<View()> scale) {
  scale_ = std::move(scale);
  picture_ = std::move(picture);
  picture_.setDevicePixelRatio(devicePixelRatioF());
  composed_.reset();
  update();
}

void PlotSurface::SetNotice(const QString& heading, const QStringList& lines) {
  noticeHeading_ = heading;
  noticeLines_ = lines;
  update();
}

void PlotSurface::SetPolygons(std::vector<ShownPolygon> polygons) {
  polygons_ = std::move(polygons);
  composed_.reset();
  update();
}

void PlotSurface::SetZoomAnchor(std::optional<Vertex> anchor) {
  zoomAnchor_ = anchor;
  update();
}

void PlotSurface::SetCross(std::optional<QPointF> at) {
  cross_ = at;
  update();
}

void PlotSurface::SetBlink(QImage image) {
  blink_ = std::move(image);
  update();
}

Vertex PlotSurface::ValueAt(QPointF position) const {
  const double ratio = devicePixelRatioF();
  const View scale = Scale();
  return {static_cast<float>(scale.ValueX(position.x() * ratio)),
          static_cast<float>(scale.ValueY(position.y() * ratio))};
}

QPointF PlotSurface::PositionOf(Vertex vertex) const {
  const View scale = Scale();
  const QPointF centre(scale.PixelX(vertex.X) + 0.5, scale.PixelY(vertex.Y) + 0.5);
  return centre / devicePixelRatioF();
}

void PlotSurface::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (picture_.isNull()) {
    painter.fillRect(rect(), Qt::black);
    PaintNotice(painter);
    return;
  }
  if (const View scale = Scale(); composed_ != scale) Compose(scale);
  const QRectF whole(QPointF(), QSizeF(shown_.size()) / shown_.devicePixelRatio());
  painter.drawImage(whole, shown_);
  if (!blink_.isNull()) painter.drawImage(whole, blink_);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintRubberBand(painter);
  PaintZoomRectangle(painter);
  PaintCross(painter);
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

void PlotSurface::Compose(const View& scale) {
  composed_ = scale;
  shown_ = picture_;
  if (!scale.Drawable()) return;
  for (const ShownPolygon& polygon : polygons_) ComposePolygon(polygon, scale);
}

void PlotSurface::ComposePolygon(const ShownPolygon& polygon, const View& scale) {
  using Looks = ShownPolygon::Looks;
  const Boundary& shape = polygon.Shape;
  const std::span corners(shape.Vertices.data(), static_cast<size_t>(shape.VertexCount));
  const PolygonFaults faults = FaultsOf(shape);
  const Canvas canvas = CanvasOf(shown_);
  if (faults.Any()) ShadeCountedPart(canvas, scale, shape);
  if (polygon.As != Looks::Faults)
    StrokePolygon(canvas, scale, corners, polygon.As == Looks::Handles, 1.5 * devicePixelRatioF(),
                  polygon.Colour.rgb());
  QPainter painter(&shown_);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF near = QRectF(rect()).adjusted(-10, -10, 10, 10);
  const auto mark = [&](int corner, double radius, bool square = false) {
    const QPointF at = PositionOf(shape.Vertices[corner]);
    if (!near.contains(at)) return;
    if (square)
      painter.drawRect(QRectF(at - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)));
    else
      painter.drawEllipse(at, radius, radius);
  };
  if (polygon.As == Looks::Open) {
    painter.setPen(polygon.Colour);
    painter.setBrush(polygon.Colour);
    for (int k = 0; k < shape.VertexCount; ++k) mark(k, 2);
  }
  if (polygon.As == Looks::Handles) {
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::white);
    for (int k = 0; k < shape.VertexCount; ++k) mark(k, 3.5, true);
  }
  painter.setBrush(Qt::NoBrush);
  for (const QPen& pen : {QPen(QColor(60, 40, 0), 4), QPen(QColor(255, 176, 32), 2)}) {
    painter.setPen(pen);
    for (const int corner : faults.Inward) mark(corner, 7);
    for (const int corner : faults.Repeated) mark(corner, 7);
  }
}

const ShownPolygon* PlotSurface::OpenPolygon() const {
  return polygons_.size() == 1 && polygons_[0].As == ShownPolygon::Looks::Open ? polygons_.data() : nullptr;
}

void PlotSurface::PaintRubberBand(QPainter& painter) const {
  const ShownPolygon* open = OpenPolygon();
  if (!open || !Scale().Drawable()) return;
  const QPointF last = PositionOf(open->Shape.Vertices[open->Shape.VertexCount - 1]);
  const QPointF next = cross_.value_or(pointer_);
  const auto seen = Clipped({last.x(), last.y(), next.x(), next.y()}, width(), height(), 2);
  if (!seen) return;
  painter.setPen(QPen(open->Colour, 1, Qt::DashLine));
  painter.drawLine(QPointF(seen->X0, seen->Y0), QPointF(seen->X1, seen->Y1));
}

void PlotSurface::PaintZoomRectangle(QPainter& painter) const {
  if (!zoomAnchor_ || !Scale().Drawable()) return;
  const QRectF rectangle = QRectF(PositionOf(*zoomAnchor_), pointer_).normalized();
  painter.setPen(QPen(QColor(130, 170, 255), 1));
  painter.setBrush(QColor(130, 170, 255, 40));
  painter.drawRect(rectangle & QRectF(rect()).adjusted(-2, -2, 2, 2));
}

void PlotSurface::PaintCross(QPainter& painter) const {
  if (!cross_) return;
  constexpr double kArm = 14, kGap = 3;
  const QPointF centre = *cross_ + QPointF(0.5, 0.5);
  // Light on dark is seen on both backgrounds.
  for (const QPen& pen : {QPen(Qt::black, 4), QPen(Qt::white, 1.5)}) {
    painter.setPen(pen);
    for (const QPointF& arm : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
      painter.drawLine(centre + kGap * arm, centre + kArm * arm);
  }
}

void PlotSurface::mousePressEvent(QMouseEvent* event) {
  pointer_ = pressed_ = event->position();
  emit Pressed(event->button(), ValueAt(pointer_), event->modifiers());
}

void PlotSurface::mouseDoubleClickEvent(QMouseEvent* event) {
  // Ignore the second press of a double click, unless the pointer has moved on.
  constexpr double kSamePlace = 2;
  const QPointF moved = event->position() - pressed_;
  if (std::max(std::abs(moved.x()), std::abs(moved.y())) > kSamePlace) mousePressEvent(event);
}

void PlotSurface::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position();
  if (OpenPolygon() || zoomAnchor_) update();
  emit Moved(ValueAt(pointer_), event->modifiers());
}

void PlotSurface::mouseReleaseEvent(QMouseEvent* event) {
  pointer_ = event->position();
  emit Released(event->button(), ValueAt(pointer_));
}

void PlotSurface::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = 120;  // of QWheelEvent::angleDelta()
  emit Wheeled(event->angleDelta().y() / kNotch, ValueAt(event->position()));
}

void PlotSurface::leaveEvent(QEvent*) {
  emit Left();
}

void PlotSurface::resizeEvent(QResizeEvent*) {
  emit Resized();
}

}  // namespace pallomir
