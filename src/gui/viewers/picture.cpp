#include "gui/viewers/picture.h"

#include <QtGui>

#include "gui/controls/save_image.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/projection/draw_points.h"

namespace pallomir {

namespace {

constexpr Colour kWhite = 0xFFFFFF;
constexpr QRgb kRim = 0xFF5A626E;

}  // namespace

Canvas CanvasOf(QImage& image) {
  return {reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height(), image.bytesPerLine() / 4};
}

int AxisTickCount(double length) {
  return static_cast<int>(length / 90);
}

QColor GroundColour(const Session& session) {
  return session.WhiteBackground ? Qt::white : Qt::black;
}

QColor InkColour(const Session& session) {
  return session.WhiteBackground ? QColor(40, 48, 60) : QColor(214, 220, 230);
}

void DrawAxes(QPainter& painter, const View& view, double ratio) {
  const double width = view.Width / ratio, height = view.Height / ratio;
  painter.drawLine(QPointF(0.5, 0), QPointF(0.5, height));
  painter.drawLine(QPointF(0, height - 0.5), QPointF(width, height - 0.5));
  for (const Tick& tick : AxisTicks(view.Left, view.Right, AxisTickCount(width))) {
    const double x = std::floor(view.PixelX(tick.Value) / ratio) + 0.5;
    painter.drawLine(QPointF(x, height - 6), QPointF(x, height));
  }
  for (const Tick& tick : AxisTicks(view.Bottom, view.Top, AxisTickCount(height))) {
    const double y = std::floor(view.PixelY(tick.Value) / ratio) + 0.5;
    painter.drawLine(QPointF(0, y), QPointF(6, y));
  }
}

void ForEachBoundary(const Session& session, ParameterPair pair, const StrokeBoundary& stroke) {
  for (int c = 1; c <= kClusters; ++c) {
    const Colour colour = session.Colours[c];
    if (!session.Display[c] || (session.WhiteBackground && colour == kWhite)) continue;
    const Cluster& cluster = session.Clusters[c];
    for (int b = 0; b < cluster.BoundaryCount; ++b) {
      const Boundary& boundary = cluster.Boundaries[b];
      if (PairOf(boundary) != pair) continue;
      const std::span corners(boundary.Vertices.data(), static_cast<size_t>(boundary.VertexCount));
      // On white, a dark rim keeps light colours visible.
      if (session.WhiteBackground) stroke(corners, 2.6, QColor(kRim));
      stroke(corners, 1.3, ScreenColour(colour));
    }
  }
}

QImage MakeGround(const Session& session, const View& view, double pixelRatio, const GroundOptions& options) {
  QImage ground = MakeImage({view.Width, view.Height}, QImage::Format_RGB32);
  ground.fill(GroundColour(session));
  if (view.Drawable() && options.Axes) {
    QPainter painter(&ground);
    painter.scale(pixelRatio, pixelRatio);
    painter.setPen(QPen(InkColour(session), 1));
    DrawAxes(painter, view, pixelRatio);
  }
  if (view.Drawable() && options.Boundaries) {
    const Canvas canvas = CanvasOf(ground);
    ForEachBoundary(session, options.Pair.value_or(PairOnView(session)),
                    [&](std::span<const Vertex> corners, double width, QColor colour) {
                      StrokePolygon(canvas, view, corners, true, width * pixelRatio, colour.rgb());
                    });
  }
  ground.setDevicePixelRatio(pixelRatio);
  return ground;
}

static std::array<QRgb, 256> PaletteOf(const Session& session) {
  std::array<QRgb, 256> palette{};
  for (int c = 0; c < kClusterSlots; ++c) palette[ColourCode(c)] = ScreenColour(session.Colours[c]).rgb();
  return palette;
}

QImage WithDensity(const QImage& ground, const DensityRaster& density, const Session& session) {
  QImage picture = ground;
  density.Paint(CanvasOf(picture), PaletteOf(session), GroundColour(session).rgb());
  return picture;
}

QImage WithPoints(const QImage& ground, const Raster& raster, const Session& session) {
  const std::array<QRgb, 256> palette = PaletteOf(session);
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

}  // namespace pallomir
