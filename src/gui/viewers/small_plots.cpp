#include "gui/viewers/small_plots.h"

#include <numbers>

#include "gui/controls/toolkit_values.h"
#include "gui/viewers/colour_scales.h"
#include "gui/viewers/dot_cloud.h"
#include "gui/viewers/explanation.h"
#include "gui/viewers/figures.h"
#include "gui/viewers/fitted_rect.h"
#include "gui/viewers/map_cells.h"

namespace pallomir {

void EmptyPlot(QCustomPlot& plot, const PlotStyle& style) {
  plot.clearItems();
  plot.clearPlottables();
  plot.plotLayout()->clear();
  plot.setBackground(style.Ground);
  plot.setNoAntialiasingOnDrag(true);
}

void SayInPlot(QCustomPlot& plot, const PlotStyle& style, const QString& text) {
  auto* words = new Explanation(&plot, text);
  StyleWords(words, style.Small, style.Quiet);
  plot.plotLayout()->addElement(0, 0, words);
}

QCPAxisRect* AddAxes(QCustomPlot& plot, QCPAxisRect* rect, const PlotStyle& style) {
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

QCPAxisRect* AddArena(QCustomPlot& plot, const PlotStyle& style, const Map& map, double scale) {
  auto* rect = new FittedRect(&plot, static_cast<double>(map.Columns) / map.Rows);
  AddAxes(plot, rect, style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  x->ticker()->setTickCount(3);
  y->setRangeReversed(true);
  x->setRange(map.Left / scale, (map.Left + map.Columns * map.Bin) / scale);
  y->setRange(map.Top / scale, (map.Top + map.Rows * map.Bin) / scale);
  return rect;
}

double UnitsOf(const MapResult& map) {
  return map.PixelsPerCm > 0 ? map.PixelsPerCm : 1;
}

QString LengthUnit(const MapResult& map) {
  return map.PixelsPerCm > 0 ? "cm" : "pixels";
}

namespace {

/// Fills an empty plot with a map; null, with the reason in the plot, if the map is empty.
QCPColorMap* AddMap(QCustomPlot& plot, const MapResult& map, const PlotStyle& style) {
  EmptyPlot(plot, style);
  if (!map.Explanation.empty() || std::isnan(PeakOf(map.Grid).Value)) {
    SayInPlot(plot, style, QString::fromStdString(map.Explanation));
    return nullptr;
  }
  QCPAxisRect* rect = AddArena(plot, style, map.Grid, UnitsOf(map));
  auto* cells = new QCPColorMap(rect->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atLeft));
  cells->setInterpolate(false);
  FillCells(*cells, map, UnitsOf(map));
  return cells;
}

}  // namespace

void PlotMap(QCustomPlot& plot, const MapResult& map, const PlotStyle& style) {
  QCPColorMap* cells = AddMap(plot, map, style);
  if (!cells) return;
  auto* rect = static_cast<FittedRect*>(plot.axisRect());
  rect->axis(QCPAxis::atBottom)->setLabel(LengthUnit(map));
  auto* scale = new ScaleBelow(&plot, rect);
  plot.plotLayout()->addElement(1, 0, scale);
  cells->setColorScale(scale);
  scale->setBarWidth(8);
  scale->setGradient(GradientOf(ColourScale::Even));
  SetScale(*scale, map, 3);
  QCPAxis* numbers = scale->axis();
  StyleAxis(numbers, style);
  numbers->setTickLabelFont(style.Small);
  numbers->setLabelFont(style.Small);
  numbers->setLabelPadding(2);
  numbers->setSubTicks(false);
  scale->setLabel(FromText(UnitOf(map.Kind)) + ", highest " + Figure(PeakOf(map.Grid).Value));
}

void PlotPlainMap(QCustomPlot& plot, const MapResult& map, const PlotStyle& style) {
  QCPColorMap* cells = AddMap(plot, map, style);
  if (!cells) return;
  cells->setGradient(GradientOf(ColourScale::Even));
  const bool isLag = map.Kind == MapKind::SpatialAutocorrelation;
  cells->setDataRange({isLag ? -1.0 : 0.0, ColoursEnd(map)});
  QCPAxisRect* rect = plot.axisRect();
  for (QCPAxis* axis : rect->axes()) {
    axis->setTicks(false);
    axis->setTickLabels(false);
  }
  const QString highest = "highest " + Figure(PeakOf(map.Grid).Value) + " " + FromText(UnitOf(map.Kind));
  rect->axis(QCPAxis::atBottom)
      ->setLabel(isLag ? Figure(rect->axis(QCPAxis::atBottom)->range().size()) + " " + LengthUnit(map) + " across"
                       : highest);
}

void PlotAverageWaveform(QCustomPlot& plot, const AverageWaveform& average, bool inMicrovolts, const PlotStyle& style) {
  EmptyPlot(plot, style);
  if (average.Spikes == 0) {
    SayInPlot(plot, style, "No spike of the cluster is in the spike file.");
    return;
  }
  QCPAxisRect* rect = AddAxes(plot, new QCPAxisRect(&plot), style);
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
  y->setLabel(inMicrovolts ? "µV" : "counts");
}

void PlotBars(QCustomPlot& plot, const Bars& bars, const PlotStyle& style) {
  EmptyPlot(plot, style);
  QCPAxisRect* rect = AddAxes(plot, new QCPAxisRect(&plot), style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  if (bars.Logarithmic) {
    x->setScaleType(QCPAxis::stLogarithmic);
    const QSharedPointer<QCPAxisTickerLog> decades(new QCPAxisTickerLog);
    decades->setLogBase(100);  // numbers at every other decade have room
    x->setTicker(decades);
    x->setNumberFormat("g");
  }
  const double highest = *std::max_element(bars.Counts.begin(), bars.Counts.end());
  x->setRange(bars.Edges.first(), bars.Edges.last());
  y->setRange(0, std::max(highest, 1.0) * 1.05);
  y->setNumberFormat("f");
  y->setNumberPrecision(0);
  x->setLabel(bars.Across);
  y->setLabel(bars.Up);
  // A filled step line: bars without seams, correct on a logarithmic axis too.
  QVector<double> heights = bars.Counts;
  heights << 0;
  auto* steps = new QCPGraph(x, y);
  steps->setData(bars.Edges, heights, true);
  steps->setLineStyle(QCPGraph::lsStepLeft);
  steps->setAntialiased(false);
  steps->setAntialiasedFill(false);
  steps->setPen(Qt::NoPen);
  steps->setBrush(style.Data);
  for (const double at : bars.Marks) {
    auto* line = new QCPGraph(x, y);
    line->setPen(QPen(style.Mark, 1, Qt::DashLine));
    line->setData({at, at}, {0, y->range().upper});
  }
}

namespace {

QPointF OnCircle(double degrees, double radius) {
  const double angle = degrees * std::numbers::pi / 180;
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

QCPCurve* AddCurve(QCPAxis* x, QCPAxis* y, const std::vector<QPointF>& points, const QPen& pen) {
  auto* curve = new QCPCurve(x, y);
  QVector<double> xs, ys;
  for (const QPointF& point : points) {
    xs << point.x();
    ys << point.y();
  }
  curve->setData(xs, ys);
  curve->setPen(pen);
  return curve;
}

}  // namespace

void PlotDirection(QCustomPlot& plot, const DirectionTuning& tuning, const PlotStyle& style) {
  EmptyPlot(plot, style);
  if (!(tuning.PeakRate > 0)) {
    SayInPlot(plot, style, "No spike has a direction.");
    return;
  }
  constexpr double kEdge = 1.15;
  auto* rect = new FittedRect(&plot, 1);
  AddAxes(plot, rect, style);
  for (QCPAxis* axis : rect->axes()) {
    axis->setTicks(false);
    axis->setTickLabels(false);
    axis->setBasePen(Qt::NoPen);
    axis->setRange(-kEdge, kEdge);
  }
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  x->setLabel(QString("outer ring %1 spikes/s").arg(Figure(tuning.PeakRate)));
  std::vector<QPointF> ring, rates;
  for (int degrees = 0; degrees <= 360; degrees += 5) ring.push_back(OnCircle(degrees, 1));
  for (int k = 0; k <= tuning.Count(); ++k) {
    const int bin = k % tuning.Count();
    rates.push_back(OnCircle((bin + 0.5) * tuning.Width(), tuning.Rate[bin] / tuning.PeakRate));
  }
  AddCurve(x, y, ring, QPen(style.Line, 1));
  AddCurve(x, y, {OnCircle(0, 1), OnCircle(180, 1)}, QPen(style.Line, 1));
  AddCurve(x, y, {OnCircle(90, 1), OnCircle(270, 1)}, QPen(style.Line, 1));
  AddCurve(x, y, rates, QPen(style.Data, 1.6));
  if (!std::isnan(tuning.VectorLength))
    AddCurve(x, y, {{0, 0}, OnCircle(tuning.VectorDirection, tuning.VectorLength)}, QPen(style.Mark, 2));
}

void PlotDots(QCustomPlot& plot, std::vector<float> times, std::vector<float> values, double minutes,
              const QString& label, QCPRange range, const PlotStyle& style) {
  EmptyPlot(plot, style);
  QCPAxisRect* rect = AddAxes(plot, new QCPAxisRect(&plot), style);
  QCPAxis* x = rect->axis(QCPAxis::atBottom);
  QCPAxis* y = rect->axis(QCPAxis::atLeft);
  x->setRange(0, std::max(minutes, 1e-6));
  y->setRange(range);
  x->setLabel("minutes");
  y->setLabel(label);
  AddDots(x, y, std::move(times), std::move(values), style.Data, 1.6);
}

}  // namespace pallomir
