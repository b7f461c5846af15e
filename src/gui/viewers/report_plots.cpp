#include "gui/viewers/report_plots.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "gui/controls/toolkit_values.h"
#include "gui/viewers/colour_scales.h"
#include "gui/viewers/dot_cloud.h"
#include "gui/viewers/explanation.h"
#include "gui/viewers/figures.h"
#include "gui/viewers/fitted_rect.h"
#include "gui/viewers/map_cells.h"
#include "gui/viewers/plot_style.h"

namespace pallomir {

namespace {

constexpr double kMinute = 60e6;  // microseconds

/// White background in any theme; no axes yet.
PlotStyle Prepare(QCustomPlot& plot) {
  plot.clearPlottables();
  plot.plotLayout()->clear();
  plot.setBackground(Qt::white);
  plot.setNoAntialiasingOnDrag(true);
  return PrintStyle(plot);
}

void SayWhy(QCustomPlot& plot, const PlotStyle& style, const QString& text) {
  auto* words = new Explanation(&plot, text);
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

/// The arena as the camera sees it: y downward, units equally long on both axes.
QCPAxisRect* AddArena(QCustomPlot& plot, const PlotStyle& style, const Map& map, double scale) {
  auto* rect = new FittedRect(&plot, static_cast<double>(map.Columns) / map.Rows);
  AddRect(plot, rect, style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  x->ticker()->setTickCount(3);
  y->setRangeReversed(true);
  x->setRange(map.Left / scale, (map.Left + map.Columns * map.Bin) / scale);
  y->setRange(map.Top / scale, (map.Top + map.Rows * map.Bin) / scale);
  return rect;
}

/// Pixels per axis unit.
double Scale(const MapResult& map) {
  return map.PixelsPerCm > 0 ? map.PixelsPerCm : 1;
}

QString LengthUnit(const MapResult& map) {
  return map.PixelsPerCm > 0 ? "cm" : "pixels";
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
  rect->axis(QCPAxis::atBottom)->setLabel(LengthUnit(map));
  auto* cells = new QCPColorMap(rect->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atLeft));
  cells->setInterpolate(false);
  auto* scale = new ScaleBelow(&plot, static_cast<FittedRect*>(rect));
  plot.plotLayout()->addElement(1, 0, scale);
  cells->setColorScale(scale);
  FillCells(*cells, map, Scale(map));
  scale->setBarWidth(8);
  scale->setGradient(GradientOf(ColourScale::Even));
  SetScale(*scale, map, 3);
  QCPAxis* numbers = scale->axis();
  StyleAxis(numbers, style);
  numbers->setTickLabelFont(style.Small);
  numbers->setLabelFont(style.Small);
  numbers->setLabelPadding(2);
  numbers->setSubTicks(false);
  scale->setLabel(FromText(UnitOf(map.Kind)) + ", highest " + Figure(peak));
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
  const auto inUnits = [scale](double pixels) { return static_cast<float>(pixels / scale); };
  std::vector<float> xs, ys;
  for (size_t i = 0; i < report.Path.Time.size(); ++i) {
    xs.push_back(inUnits(report.Path.X[i]));
    ys.push_back(inUnits(report.Path.Y[i]));
  }
  AddLine(x, y, xs, ys, QColor("#c3c9d4"));
  std::vector<float> spikeXs, spikeYs;
  for (const int64_t sample : report.SampleOf) {
    if (sample < 0 || !std::isfinite(xs[sample])) continue;
    spikeXs.push_back(xs[sample]);
    spikeYs.push_back(ys[sample]);
  }
  const auto shown = static_cast<double>(spikeXs.size());
  AddDots(x, y, std::move(spikeXs), std::move(spikeYs), style.Mark, 2);
  x->setLabel(LengthUnit(report.Rate) + ", " + Whole(shown) + (shown == 1 ? " spike" : " spikes"));
}

void AlignMaps(std::span<QCustomPlot* const> plots) {
  // Other elements to the right of and below a plot count as margin.
  const auto besides = [](const QCustomPlot& plot) {
    const QRect outer = plot.axisRect()->outerRect();
    return QMargins(0, 0, plot.width() - 1 - outer.right(), plot.height() - 1 - outer.bottom());
  };
  std::vector<QCustomPlot*> maps;
  std::copy_if(plots.begin(), plots.end(), std::back_inserter(maps), [](auto* plot) { return plot->axisRectCount(); });
  QMargins widest;
  for (QCustomPlot* plot : maps) {
    plot->replot();
    widest = widest | (plot->axisRect()->margins() + besides(*plot));
  }
  for (QCustomPlot* plot : maps) {
    plot->axisRect()->setAutoMargins(QCP::msNone);
    plot->axisRect()->setMargins(widest - besides(*plot));
  }
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
  std::vector<float> times, heights;
  for (size_t i = 0; i < spikes.Time.size(); ++i) {
    times.push_back(static_cast<float>(static_cast<double>(spikes.Time[i] - spikes.First) / kMinute));
    heights.push_back(static_cast<float>(values[i]));
  }
  if (std::none_of(heights.begin(), heights.end(), [](float height) { return std::isfinite(height); })) {
    SayWhy(plot, style, "No spike of the cluster falls on a usable position sample.");
    return;
  }
  QCPAxisRect* rect = AddRect(plot, new QCPAxisRect(&plot), style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  x->setRange(0, std::max(static_cast<double>(spikes.Last - spikes.First) / kMinute, 1e-6));
  y->setRange(range.size() > 0 ? range : RangeOf(heights));
  x->setLabel("minutes");
  y->setLabel(label);
  AddDots(x, y, std::move(times), std::move(heights), style.Data, 1.6);
}

template void PlotSeries(QCustomPlot&, const ClusterLines&, const std::vector<float>&, const QString&, QCPRange);
template void PlotSeries(QCustomPlot&, const ClusterLines&, const std::vector<double>&, const QString&, QCPRange);

}  // namespace pallomir
