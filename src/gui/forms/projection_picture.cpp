#include "gui/forms/projection_picture.h"

#include <QtGui>

#include "gui/controls/toolkit_values.h"
#include "gui/forms/axis_ruler.h"
#include "pallomir/clusters/classify.h"
#include "pallomir/files/number_text.h"

namespace pallomir {

namespace {

constexpr int kMargin = 8;
constexpr int kLegendRow = 17;
constexpr int kSwatch = 10;
const QColor kText(27, 34, 48);

}  // namespace

ProjectionPicture::ProjectionPicture(const Session& session, PictureOptions options, UniformNumbers& random)
    : session_(session), options_(std::move(options)) {
  const QSize size = options_.Plot * options_.PixelScale;
  view_ = ViewOf(session, size.width(), size.height());
  const int pixel = std::max(1, static_cast<int>(std::lround(options_.PixelScale)));
  PointLayer layer(size, session.PointSize, pixel, options_.Points);
  layer.Draw(session, PairOnView(session), view_, options_.Settings, 0, session.Points.Rows(), random);
  QImage clear = MakeImage(size, QImage::Format_ARGB32);
  clear.fill(Qt::transparent);
  points_ = layer.Over(clear, session);

  options_.Font.setPixelSize(12);
  const QFontMetrics metrics(options_.Font);
  legendWidth_ = 0;
  for (int c = 0; c <= kClusters; ++c) {
    if (!session.Display[c] || (c > 0 && !session.ClusterDefined[c])) continue;
    legend_.push_back(
        {ScreenColour(session.Colours[c]), QString("CL %1").arg(c), FromText(Grouped(PointsInCluster(session, c)))});
    legendWidth_ = std::max(legendWidth_, metrics.horizontalAdvance("CL 30   " + legend_.back().Spikes));
  }
  legendWidth_ += kSwatch + 3 * kMargin;
}

QSize ProjectionPicture::Size() const {
  const int strip = options_.Ground.Axes ? AxisRuler::kThickness : 0;
  const int rows = static_cast<int>(legend_.size()) * kLegendRow;
  return {kMargin + strip + options_.Plot.width() + legendWidth_,
          2 * kMargin + std::max(strip + options_.Plot.height(), rows)};
}

void ProjectionPicture::PaintOn(QPaintDevice& device, double scale) const {
  QPainter painter(&device);
  painter.scale(scale, scale);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(options_.Font);
  painter.fillRect(QRect(QPoint(), Size()), Qt::white);
  const double width = options_.Plot.width(), height = options_.Plot.height();
  painter.translate(kMargin, kMargin);
  painter.setPen(kText);
  if (options_.Ground.Axes && view_.Drawable()) {
    const double ratio = options_.PixelScale;
    AxisRuler::Paint(painter, Qt::Vertical, height, AxisRuler::MarksOf(Qt::Vertical, view_, ratio),
                     FromText(session_.ParameterNames[session_.YParameter]));
    painter.translate(AxisRuler::kThickness, height);
    AxisRuler::Paint(painter, Qt::Horizontal, width, AxisRuler::MarksOf(Qt::Horizontal, view_, ratio),
                     FromText(session_.ParameterNames[session_.XParameter]));
    painter.translate(0, -height);
  }
  PaintPlot(painter);
  painter.translate(width + kMargin, 0);
  PaintLegend(painter);
}

void ProjectionPicture::PaintPlot(QPainter& painter) const {
  const double ratio = options_.PixelScale;
  const QRectF plot(QPointF(), QSizeF(options_.Plot));
  painter.fillRect(plot, GroundColour(session_));
  painter.setPen(QPen(InkColour(session_), 1));
  if (options_.Ground.Axes && view_.Drawable()) DrawAxes(painter, view_, ratio);
  if (options_.Ground.Boundaries && view_.Drawable())
    ForEachBoundary(session_, PairOnView(session_), [&](std::span<const Vertex> corners, double width, QColor colour) {
      painter.setPen(QPen(colour, width));
      for (size_t k = 0; k < corners.size(); ++k) {
        const Segment edge = SegmentOf(view_, corners[k], corners[(k + 1) % corners.size()]);
        // Drawings know no border of the plot.
        if (const auto seen = Clipped(edge, view_.Width, view_.Height, 0))
          painter.drawLine(QPointF(seen->X0, seen->Y0) / ratio, QPointF(seen->X1, seen->Y1) / ratio);
      }
    });
  painter.drawImage(plot, points_);
}

void ProjectionPicture::PaintLegend(QPainter& painter) const {
  const double right = legendWidth_ - 2 * kMargin;
  double top = 0;
  for (const LegendLine& line : legend_) {
    painter.setPen(QPen(kText, 0.7));
    painter.setBrush(line.Colour);
    painter.drawRect(QRectF(0.5, top + (kLegendRow - kSwatch) / 2.0, kSwatch, kSwatch));
    painter.drawText(QRectF(kSwatch + kMargin, top, right, kLegendRow), Qt::AlignVCenter, line.Cluster);
    painter.drawText(QRectF(0, top, right, kLegendRow), Qt::AlignVCenter | Qt::AlignRight, line.Spikes);
    top += kLegendRow;
  }
}

QImage ProjectionPicture::Image() const {
  QImage image = MakeImage((QSizeF(Size()) * options_.PixelScale).toSize(), QImage::Format_RGB32);
  PaintOn(image, options_.PixelScale);
  return image;
}

DrawnPicture ProjectionPicture::Drawn() const {
  return {options_.Title, Size(), options_.PixelScale, [this] { return Image(); },
          [this](QPaintDevice& device) { PaintOn(device, 1); }};
}

}  // namespace pallomir
