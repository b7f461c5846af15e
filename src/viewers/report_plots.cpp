#include "viewers/report_plots.h"

#include <algorithm>
#include <cmath>

#include "viewers/colour_scales.h"
#include "viewers/figures.h"
#include "viewers/fitted_rect.h"
#include "viewers/map_cells.h"
#include "viewers/plot_style.h"

namespace pallomir {

namespace {

constexpr double kMinute = 60e6;  // microseconds

/// White paper, whatever the desktop looks like; no axes yet.
PlotStyle Prepare(QCustomPlot& plot) {
  plot.clearPlottables();
  plot.plotLayout()->clear();
  plot.setBackground(Qt::white);
  plot.setNoAntialiasingOnDrag(true);
  return PrintStyle(plot);
}

void SayWhy(QCustomPlot& plot, const PlotStyle& style, const QString& text) {
  auto* words = MakeWords(&plot, text, Qt::AlignCenter | Qt::TextWordWrap);
  StyleWords(words, style.Small, style.Quiet);
  plot.plotLayout()->addElement(0, 0, words);
}

QCPAxisRect* AddRect(QCustomPlot& plot, QCPAxisRect* rect, const PlotStyle& style) {
  rect->setupFullAxesBox();
  plot.plotLayout()->addElement(0, 0, rect);
  for (QCPAxis* axis : rect->axes()) {
    axis->setLayer("axes");
    StyleAxis(axis, style);
    axis->setTickLabelFont(style.Small);
    axis->setLabelFont(style.Small);
    axis->setSubTicks(false);
    axis->ticker()->setTickCount(4);
    axis->setLabelPadding(2);
  }
  for (const auto side : {QCPAxis::atTop, QCPAxis::atRight}) rect->axis(side)->setTicks(false);
  return rect;
}

/// The camera's picture of the whole path: y downward, a unit as long on both axes.
QCPAxisRect* AddArena(QCustomPlot& plot, const PlotStyle& style, const Map& map, double scale) {
  auto* rect = new FittedRect(&plot, static_cast<double>(map.Columns) / map.Rows);
  AddRect(plot, rect, style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  y->setRangeReversed(true);
  x->setRange(map.Left / scale, (map.Left + map.Columns * map.Bin) / scale);
  y->setRange(map.Top / scale, (map.Top + map.Rows * map.Bin) / scale);
  return rect;
}

/// Pixels to the unit of the axes.
double Scale(const MapResult& map) {
  return map.PixelsPerCm > 0 ? map.PixelsPerCm : 1;
}

QCPRange RangeOf(const auto& values) {
  QCPRange range;
  bool any = false;
  for (const double value : values) {
    if (!std::isfinite(value)) continue;
    range = any ? QCPRange(std::min(range.lower, value), std::max(range.upper, value)) : QCPRange(value, value);
    any = true;
  }
  const double margin = range.size() > 0 ? 0.03 * range.size() : 1;
  return {range.lower - margin, range.upper + margin};
}

}  // namespace

void PlotMap(QCustomPlot& plot, const MapResult& map) {
  const PlotStyle style = Prepare(plot);
  const double peak = PeakOf(map.Grid).Value;
  if (!map.Explanation.empty() || std::isnan(peak)) {
    SayWhy(plot, style, QString::fromStdString(map.Explanation));
    return;
  }
  QCPAxisRect* rect = AddArena(plot, style, map.Grid, Scale(map));
  auto* scale = new ScaleBeside(&plot, static_cast<FittedRect*>(rect));
  plot.plotLayout()->addElement(0, 1, scale);
  scale->setBarWidth(8);
  scale->setMinimumMargins({0, 0, 4, 0});
  StyleAxis(scale->axis(), style);
  scale->axis()->setTickLabelFont(style.Small);
  scale->axis()->setSubTicks(false);
  scale->axis()->ticker()->setTickCount(3);
  auto* cells = new QCPColorMap(rect->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atLeft));
  cells->setInterpolate(false);
  cells->setColorScale(scale);
  FillCells(*cells, map, Scale(map));
  scale->setGradient(GradientOf(ColourScale::Even));
  scale->setDataRange({0, peak > 0 ? peak : 1});
  rect->axis(QCPAxis::atBottom)
      ->setLabel(QString::fromStdString(std::string(UnitOf(map.Kind))) + ", highest " + Figure(peak));
}

void PlotSpikesOnPath(QCustomPlot& plot, const Report& report) {
  const PlotStyle style = Prepare(plot);
  const Map& map = report.Occupancy.Grid;
  if (map.Columns == 0) {
    SayWhy(plot, style, QString::fromStdString(report.Occupancy.Explanation));
    return;
  }
  const double scale = Scale(report.Rate);
  QCPAxisRect* rect = AddArena(plot, style, map, scale);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  auto* path = new QCPCurve(x, y);
  path->setPen(QPen(QColor("#c3c9d4"), 0.6));
  QVector<QCPCurveData> places;
  for (size_t i = 0; i < report.Path.Time.size(); ++i)
    places.append({static_cast<double>(i), report.Path.X[i] / scale, report.Path.Y[i] / scale});
  path->data()->set(places, true);
  auto* spikes = new QCPCurve(x, y);
  spikes->setLineStyle(QCPCurve::lsNone);
  spikes->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, style.Mark, 2));
  QVector<QCPCurveData> dots;
  for (const int64_t sample : report.SampleOf)
    if (sample >= 0 && std::isfinite(report.Path.X[sample]))
      dots.append({static_cast<double>(dots.size()), report.Path.X[sample] / scale, report.Path.Y[sample] / scale});
  spikes->data()->set(dots, true);
  x->setLabel(QString("%1 spikes").arg(Whole(static_cast<double>(dots.size()))));
}

void PlotAverageWaveform(QCustomPlot& plot, const ClusterMeasures& measures) {
  const PlotStyle style = Prepare(plot);
  const AverageWaveform& average = measures.Average;
  if (average.Spikes == 0) {
    SayWhy(plot, style, "No spike of the cluster is in the spike file.");
    return;
  }
  QCPAxisRect* rect = AddRect(plot, new QCPAxisRect(&plot), style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  constexpr int kStep = kWaveformSamples + 6;
  QSharedPointer<QCPAxisTickerText> wires(new QCPAxisTickerText);
  std::vector<double> extent;
  for (int wire = 0; wire < kWires; ++wire) {
    wires->addTick(wire * kStep + kWaveformSamples / 2.0, QString::number(wire + 1));
    auto* low = new QCPGraph(x, y);
    auto* high = new QCPGraph(x, y);
    auto* mean = new QCPGraph(x, y);
    low->setPen(Qt::NoPen);
    high->setPen(Qt::NoPen);
    high->setBrush(QColor(style.Data.red(), style.Data.green(), style.Data.blue(), 55));
    high->setChannelFillGraph(low);
    mean->setPen(QPen(average.Recorded[wire] ? style.Data : style.Line, 1.4));
    for (int j = 0; j < kWaveformSamples; ++j) {
      const double at = wire * kStep + j, value = average.Mean[wire][j], spread = average.Deviation[wire][j];
      low->addData(at, value - spread);
      high->addData(at, value + spread);
      mean->addData(at, value);
      extent.insert(extent.end(), {value - spread, value + spread});
    }
  }
  x->setTicker(wires);
  x->setTickLength(0, 0);
  x->setRange(-4, kWires * kStep - 2);
  x->setLabel("wire (mean and SD)");
  y->setRange(RangeOf(extent));
  y->setLabel(measures.InMicrovolts ? "µV" : "counts");
}

template <class Value>
void PlotSeries(QCustomPlot& plot, const ClusterLines& spikes, const std::vector<Value>& values, const QString& label,
                QCPRange range) {
  const PlotStyle style = Prepare(plot);
  if (spikes.Time.empty()) {
    SayWhy(plot, style, "The cluster has no spike within its time range.");
    return;
  }
  QCPAxisRect* rect = AddRect(plot, new QCPAxisRect(&plot), style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  auto* dots = new QCPGraph(x, y);
  dots->setLineStyle(QCPGraph::lsNone);
  dots->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, style.Data, 1.6));
  QVector<double> times, heights;
  for (size_t i = 0; i < spikes.Time.size(); ++i) {
    if (!std::isfinite(static_cast<double>(values[i]))) continue;
    times.append(static_cast<double>(spikes.Time[i] - spikes.First) / kMinute);
    heights.append(static_cast<double>(values[i]));
  }
  dots->setData(times, heights, true);
  x->setRange(0, std::max(static_cast<double>(spikes.Last - spikes.First) / kMinute, 1e-6));
  y->setRange(range.size() > 0 ? range : RangeOf(heights));
  x->setLabel("minutes");
  y->setLabel(label);
}

template void PlotSeries(QCustomPlot&, const ClusterLines&, const std::vector<float>&, const QString&, QCPRange);
template void PlotSeries(QCustomPlot&, const ClusterLines&, const std::vector<double>&, const QString&, QCPRange);

}  // namespace pallomir
