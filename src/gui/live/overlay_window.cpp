#include "gui/live/overlay_window.h"

#include <QtWidgets>
#include <algorithm>
#include <cmath>

#include "gui/controls/controls.h"
#include "gui/controls/toolkit_values.h"
#include "gui/viewers/figures.h"
#include "pallomir/science/waveforms/waveform_density.h"

namespace pallomir {

namespace {

constexpr int kGap = 6;

/// From the ground to the colour by the logarithm of the count.
QRgb Shade(QColor ground, QColor full, uint32_t passes, double logOfMost) {
  if (passes == 0) return ground.rgb();
  const double share = 0.2 + 0.8 * std::log1p(passes) / logOfMost;
  const auto mixed = [share](int from, int to) { return static_cast<int>(from + share * (to - from)); };
  return qRgb(mixed(ground.red(), full.red()), mixed(ground.green(), full.green()), mixed(ground.blue(), full.blue()));
}

}  // namespace

WaveformOverlay::WaveformOverlay() {
  setObjectName("overlay");
  setMinimumSize(240, 120);
  setAccessibleName("Waveforms of the chosen cluster on each wire");
  setToolTip(
      "Brighter where more waveforms pass; the line is their mean. The range leaves out a thousandth at each end.");
}

QRect WaveformOverlay::PlaceOf(int wire) const {
  const int head = fontMetrics().height() + 2, scale = fontMetrics().horizontalAdvance("-88 888") + 4;
  const int width = (this->width() - scale) / kWires;
  return {scale + wire * width, head, std::max(width - kGap, 2), std::max(height() - head - 2, 2)};
}

void WaveformOverlay::ShowState(const LiveState& state) {
  const int c = state.Program.CurrentCluster;
  const LiveCluster& cluster = state.Cut.Clusters[c];
  why_ = c == 0 || !cluster.Defined          ? QString("Choose a cluster that has a boundary.")
         : !state.Cut.WhyNoSpikeFile.empty() ? QString::fromStdString(state.Cut.WhyNoSpikeFile)
                                             : QString("…");
  unit_ = state.Cut.InMicrovolts ? "µV" : "counts";
  average_ = cluster.Measures.Average;
  const QColor colour = ScreenColour(state.Program.ReferenceColours[c]);
  const bool same = waveforms_ == cluster.Plots.Waveforms && colour_ == colour;
  waveforms_ = cluster.Plots.Waveforms;
  colour_ = colour;
  if (!same) Draw();
  update();
}

void WaveformOverlay::Draw() {
  pictures_ = {};
  if (!waveforms_ || waveforms_->Samples.empty()) return;
  const SampleRange range = RangeOfSamples(waveforms_->Samples);
  const double margin = std::max(0.05 * (range.High - range.Low), 1.0);
  low_ = range.Low - margin;
  high_ = range.High + margin;
  for (int wire = 0; wire < kWires; ++wire)
    pictures_[wire] = DensityOfWire(wire, (QSizeF(PlaceOf(wire).size()) * devicePixelRatioF()).toSize());
}

QImage WaveformOverlay::DensityOfWire(int wire, QSize size) const {
  const WaveformDensity density = DensityOf(waveforms_->Samples, wire, size.width(), size.height(), low_, high_);
  const double most = std::log1p(*std::max_element(density.Passes.begin(), density.Passes.end()));
  QImage picture(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < size.width(); ++x) line[x] = Shade(Qt::black, colour_, density.At(y, x), most);
  }
  return picture;
}

void WaveformOverlay::PaintMean(QPainter& painter, int wire) const {
  const QRectF place = PlaceOf(wire);
  QPolygonF line;
  for (int s = 0; s < kWaveformSamples; ++s) {
    const double counts = average_.Mean[wire][s] / waveforms_->UnitsPerCount[wire];
    line << QPointF(place.left() + s * (place.width() - 1) / (kWaveformSamples - 1),
                    place.top() + (high_ - counts) / (high_ - low_) * place.height());
  }
  painter.setPen(QPen(Qt::white, 1.4));
  painter.drawPolyline(line);
}

void WaveformOverlay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  if (!waveforms_ || waveforms_->Samples.empty()) {
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, why_);
    return;
  }
  for (int wire = 0; wire < kWires; ++wire) {
    const QRect place = PlaceOf(wire);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(place.left(), 0, place.width(), place.top()), Qt::AlignCenter,
                     QString("wire %1").arg(wire + 1));
    painter.drawImage(place, pictures_[wire]);
    painter.save();
    painter.setClipRect(place);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintMean(painter, wire);
    painter.restore();
  }
  const QRect first = PlaceOf(0);
  const double unit = waveforms_->UnitsPerCount[0];
  const QRect scale(0, first.top(), first.left() - 4, first.height());
  painter.drawText(scale, Qt::AlignRight | Qt::AlignTop, Figure(high_ * unit));
  painter.drawText(scale, Qt::AlignRight | Qt::AlignVCenter, unit_);
  painter.drawText(scale, Qt::AlignRight | Qt::AlignBottom, Figure(low_ * unit));
}

void WaveformOverlay::resizeEvent(QResizeEvent*) {
  Draw();
}

OverlayWindow::OverlayWindow(Dialogs& dialogs)
    : LiveWindow("Overlay", "Waveforms", "The waveforms of the chosen cluster over each other: N goes to the next one",
                 dialogs),
      heading_(MakeHeading({})),
      overlay_(new WaveformOverlay) {
  QVBoxLayout* column = MakeContent();
  AddText(column, heading_);
  column->addWidget(overlay_, 1);
}

void OverlayWindow::AddWants(const Session& session, LiveWants& wants) const {
  wants.Cell = session.CurrentCluster;
  wants.CellParts |= OnlyPart(MeasurePart::Waveform);
}

void OverlayWindow::ShowState(const LiveState& state) {
  const int c = state.Program.CurrentCluster;
  const LiveCluster& cluster = state.Cut.Clusters[c];
  QString text = c == 0 ? QString() : QString("Cluster %1").arg(c);
  if (cluster.Plots.Waveforms) {
    const auto drawn = static_cast<double>(cluster.Plots.Waveforms->Samples.size());
    text += QString(": %1 of %2 spikes").arg(Whole(drawn), Whole(static_cast<double>(cluster.Spikes)));
  }
  heading_->setText(text);
  overlay_->ShowState(state);
}

}  // namespace pallomir
