#include "forms/picture.h"

#include <QtGui>

#include "controls/save_image.h"
#include "controls/toolkit_values.h"
#include "projection/draw_points.h"

namespace pallomir {

namespace {

constexpr Colour kWhite = 0xFFFFFF;

QPointF PixelOf(const View& view, const Vertex& vertex) {
  return {view.PixelX(vertex.X) + 0.5, view.PixelY(vertex.Y) + 0.5};
}

void DrawBoundary(QPainter& painter, const View& view, const Boundary& boundary) {
  QPolygonF polygon;
  for (int k = 0; k < boundary.VertexCount; ++k) polygon << PixelOf(view, boundary.Vertices[k]);
  painter.drawPolygon(polygon);
}

/// Text with a rim of the background's colour on a pale plate of it, to be read over any crowd of points.
void DrawReadableText(QPainter& painter, QPointF place, const QString& text, QColor ink, QColor rim) {
  QPainterPath path;
  path.addText(place, painter.font(), text);
  QColor plate = rim;
  plate.setAlphaF(0.6F);
  painter.setBrush(plate);
  painter.setPen(Qt::NoPen);
  painter.drawRoundedRect(path.boundingRect().adjusted(-4, -3, 4, 3), 4, 4);
  painter.strokePath(path, QPen(rim, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(path, ink);
}

}  // namespace

QImage MakeGround(const Session& session, const View& view, double pixelRatio, bool drawBoundaries) {
  QImage ground = MakeImage({view.Width, view.Height}, QImage::Format_RGB32);
  ground.fill(session.WhiteBackground ? Qt::white : Qt::black);
  if (drawBoundaries && view.Drawable()) {
    QPainter painter(&ground);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int c = 1; c <= kClusters; ++c) {
      const Colour colour = session.Colours[c];
      if (!session.Display[c] || (session.WhiteBackground && colour == kWhite)) continue;
      const Cluster& cluster = session.Clusters[c];
      for (int b = 0; b < cluster.BoundaryCount; ++b) {
        const Boundary& boundary = cluster.Boundaries[b];
        if (!OnView(session, boundary)) continue;
        // On white a dark rim keeps light colours visible.
        painter.setPen(QPen(QColor(90, 98, 110), 2.6 * pixelRatio));
        if (session.WhiteBackground) DrawBoundary(painter, view, boundary);
        painter.setPen(QPen(ScreenColour(colour), 1.3 * pixelRatio));
        DrawBoundary(painter, view, boundary);
      }
    }
  }
  ground.setDevicePixelRatio(pixelRatio);
  return ground;
}

QImage WithPoints(const QImage& ground, const Raster& raster, const Session& session) {
  std::array<QRgb, 256> palette{};
  for (int c = 0; c < kClusterSlots; ++c) palette[ColourCode(c)] = ScreenColour(session.Colours[c]).rgb();
  QImage picture = MakeImage(ground.size(), ground.format());
  picture.setDevicePixelRatio(ground.devicePixelRatio());
  for (int y = 0; y < raster.Height(); ++y) {
    auto* pixels = reinterpret_cast<QRgb*>(picture.scanLine(y));
    const auto* under = reinterpret_cast<const QRgb*>(ground.constScanLine(y));
    const auto codes = raster.Row(y);
    for (int x = 0; x < raster.Width(); ++x) pixels[x] = codes[x] ? palette[codes[x]] : under[x];
  }
  return picture;
}

QImage PointsAlone(const Raster& raster, QColor colour) {
  QImage picture = MakeImage({raster.Width(), raster.Height()}, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < raster.Height(); ++y) {
    auto* pixels = reinterpret_cast<QRgb*>(picture.scanLine(y));
    const auto codes = raster.Row(y);
    for (int x = 0; x < raster.Width(); ++x) pixels[x] = codes[x] ? colour.rgba() : 0;
  }
  return picture;
}

QImage ImageOf(const TraceRaster& traces, std::span<const uint32_t, 256> palette) {
  QImage image = MakeImage({traces.Width(), traces.Height()}, QImage::Format_RGB32);
  traces.Paint(palette, reinterpret_cast<uint32_t*>(image.bits()), static_cast<size_t>(image.bytesPerLine() / 4));
  return image;
}

void DrawAxes(QImage& picture, const Session& session, const View& view) {
  if (!view.Drawable()) return;
  const double ratio = picture.devicePixelRatio();
  const double width = view.Width / ratio, height = view.Height / ratio;
  const QColor ink = session.WhiteBackground ? QColor(40, 48, 60) : QColor(214, 220, 230);
  const QColor rim = session.WhiteBackground ? Qt::white : Qt::black;
  QPainter painter(&picture);
  QFont font = painter.font();
  font.setPixelSize(11);
  painter.setFont(font);
  const QFontMetricsF metrics(font);

  painter.setPen(QPen(ink, 1));
  painter.drawLine(QPointF(0.5, 0), QPointF(0.5, height));
  painter.drawLine(QPointF(0, height - 0.5), QPointF(width, height - 0.5));
  const auto xTicks = AxisTicks(view.Left, view.Right, static_cast<int>(width / 90));
  const auto yTicks = AxisTicks(view.Bottom, view.Top, static_cast<int>(height / 60));
  for (const Tick& tick : xTicks) {
    const double x = std::floor(view.PixelX(tick.Value) / ratio) + 0.5;
    painter.drawLine(QPointF(x, height - 6), QPointF(x, height));
  }
  for (const Tick& tick : yTicks) {
    const double y = std::floor(view.PixelY(tick.Value) / ratio) + 0.5;
    painter.drawLine(QPointF(0, y), QPointF(6, y));
  }

  painter.setRenderHint(QPainter::Antialiasing);
  QFont bold = font;
  bold.setPixelSize(12);
  bold.setBold(true);
  const QFontMetricsF boldMetrics(bold);
  const QString xName = QString::fromStdString(session.ParameterNames[session.XParameter]);
  const QString yName = QString::fromStdString(session.ParameterNames[session.YParameter]);
  const double xNameLeft = width - boldMetrics.horizontalAdvance(xName) - 8;
  const double yNameBottom = boldMetrics.height() + 4;
  for (const Tick& tick : xTicks) {
    const QString text = QString::fromStdString(tick.Text);
    const double wide = metrics.horizontalAdvance(text);
    const double left = view.PixelX(tick.Value) / ratio - wide / 2;
    if (left < 30 || left + wide > xNameLeft - 6) continue;
    DrawReadableText(painter, {left, height - 10}, text, ink, rim);
  }
  for (const Tick& tick : yTicks) {
    const double baseline = view.PixelY(tick.Value) / ratio + metrics.ascent() / 2 - 1;
    if (baseline < yNameBottom + metrics.height() || baseline > height - 14) continue;
    DrawReadableText(painter, {10, baseline}, QString::fromStdString(tick.Text), ink, rim);
  }
  painter.setFont(bold);
  DrawReadableText(painter, {xNameLeft, height - 10}, xName, ink, rim);
  DrawReadableText(painter, {8, yNameBottom}, yName, ink, rim);
}

}  // namespace pallomir
