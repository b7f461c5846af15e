#include "gui/viewers/dot_cloud.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "gui/controls/save_image.h"
#include "pallomir/files/error.h"
#include "pallomir/projection/raster.h"

namespace pallomir {

namespace {

constexpr size_t kMostShapes = 4000;
constexpr int kDetail = 4;  ///< image pixels per plot pixel; 1,200 dpi would look no better
constexpr double kLineWidth = 0.6;

/// Dots, or a line through them, as one image.
class DotCloud : public QCPAbstractPlottable {
 public:
  DotCloud(QCPAxis* x, QCPAxis* y, std::vector<float> xs, std::vector<float> ys, QColor colour, double diameter,
           bool joined)
      : QCPAbstractPlottable(x, y),
        xs_(std::move(xs)),
        ys_(std::move(ys)),
        colour_(colour),
        diameter_(diameter),
        joined_(joined) {}

  double selectTest(const QPointF&, bool, QVariant* = nullptr) const override { return -1; }
  QCPRange getKeyRange(bool& found, QCP::SignDomain) const override {
    found = false;
    return {};
  }
  QCPRange getValueRange(bool& found, QCP::SignDomain, const QCPRange&) const override {
    found = false;
    return {};
  }

 protected:
  void draw(QCPPainter* painter) override {
    const QRect rect = clipRect();
    if (!rect.isValid()) return;
    try {
      const QImage& picture = Picture(rect);
      const double scale = painter->deviceTransform().m11();
      painter->setRenderHint(QPainter::LosslessImageRendering);
      // A painter that shrinks images interpolates between four pixels; this averages over all of them.
      const bool shrunk = scale < kDetail && painter->deviceTransform().type() <= QTransform::TxScale;
      painter->drawImage(QRectF(rect), shrunk ? picture.scaled((QSizeF(rect.size()) * scale).toSize(),
                                                               Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                              : picture);
    } catch (const std::exception&) {  // nothing may leave a paint event
      painter->drawText(rect, Qt::AlignCenter | Qt::TextWordWrap, "There is not enough memory for this picture.");
    }
  }
  void drawLegendIcon(QCPPainter*, const QRectF&) const override {}

 private:
  /// Cached until the dots' positions in it change: a sheet is drawn several times while it is laid out and saved.
  const QImage& Picture(const QRect& rect) {
    const View view{mKeyAxis->pixelToCoord(rect.left()),
                    mKeyAxis->pixelToCoord(rect.left() + rect.width()),
                    mValueAxis->pixelToCoord(rect.top()),
                    mValueAxis->pixelToCoord(rect.top() + rect.height()),
                    rect.width() * kDetail,
                    rect.height() * kDetail};
    const std::array<double, 6> extent = {view.Left,   view.Right,       view.Top,
                                          view.Bottom, 1.0 * view.Width, 1.0 * view.Height};
    if (extent != drawnAt_) picture_ = Painted(view);
    drawnAt_ = extent;
    return picture_;
  }

  QImage Painted(const View& view) const {
    Raster raster(view.Width, view.Height, diameter_ / 2 * kDetail, 1);
    if (joined_)
      DrawJoined(view, raster);
    else
      Draw(view, xs_, ys_, raster);
    // All pixels, even transparent ones, have the dots' colour, so that smoothing or compression blends in no other.
    QImage picture = MakeImage({view.Width, view.Height}, QImage::Format_ARGB32);
    const QRgb dot = colour_.rgb(), nothing = dot & 0x00FFFFFF;
    for (int row = 0; row < view.Height; ++row) {
      auto* pixels = reinterpret_cast<QRgb*>(picture.scanLine(row));
      const auto codes = raster.Row(row);
      for (int column = 0; column < view.Width; ++column) pixels[column] = codes[column] ? dot : nothing;
    }
    return picture;
  }

  static void Draw(const View& view, const std::vector<float>& xs, const std::vector<float>& ys, Raster& raster) {
    const std::vector<uint8_t> codes(xs.size(), 1);
    raster.Draw(view, xs.data(), ys.data(), codes.data(), xs.size());
  }

  /// Adds a dot per pixel between two positions.
  void DrawJoined(const View& view, Raster& raster) const {
    std::vector<float> xs, ys;
    const int most = view.Width + view.Height;
    for (size_t i = 1; i < xs_.size(); ++i) {
      const double across = view.PixelX(xs_[i]) - view.PixelX(xs_[i - 1]);
      const double down = view.PixelY(ys_[i]) - view.PixelY(ys_[i - 1]);
      const double longer = std::max(std::abs(across), std::abs(down));
      if (!std::isfinite(across) || !std::isfinite(down)) continue;
      const int steps = static_cast<int>(std::clamp(std::ceil(longer), 1.0, static_cast<double>(most)));
      for (int k = 0; k < steps; ++k) {
        const float share = static_cast<float>(k) / static_cast<float>(steps);
        xs.push_back(std::lerp(xs_[i - 1], xs_[i], share));
        ys.push_back(std::lerp(ys_[i - 1], ys_[i], share));
      }
    }
    Draw(view, xs, ys, raster);
  }

  std::vector<float> xs_;
  std::vector<float> ys_;
  QColor colour_;
  double diameter_;
  bool joined_;
  QImage picture_;
  std::array<double, 6> drawnAt_{};
};

QCPCurve* AddCurve(QCPAxis* x, QCPAxis* y, const std::vector<float>& xs, const std::vector<float>& ys) {
  auto* curve = new QCPCurve(x, y);
  QVector<QCPCurveData> points;
  for (size_t i = 0; i < xs.size(); ++i) points.append({static_cast<double>(i), xs[i], ys[i]});
  curve->data()->set(points, true);
  return curve;
}

}  // namespace

void AddDots(QCPAxis* x, QCPAxis* y, std::vector<float> xs, std::vector<float> ys, QColor colour, double diameter) {
  if (xs.size() > kMostShapes) {
    new DotCloud(x, y, std::move(xs), std::move(ys), colour, diameter, false);
    return;
  }
  QCPCurve* dots = AddCurve(x, y, xs, ys);
  dots->setLineStyle(QCPCurve::lsNone);
  dots->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, colour, diameter));
}

void AddLine(QCPAxis* x, QCPAxis* y, std::vector<float> xs, std::vector<float> ys, QColor colour) {
  if (xs.size() > kMostShapes)
    new DotCloud(x, y, std::move(xs), std::move(ys), colour, kLineWidth, true);
  else
    AddCurve(x, y, xs, ys)->setPen(QPen(colour, kLineWidth));
}

}  // namespace pallomir
