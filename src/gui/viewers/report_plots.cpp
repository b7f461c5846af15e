#include "gui/viewers/report_plots.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "gui/viewers/dot_cloud.h"
#include "gui/viewers/figures.h"
#include "gui/viewers/small_plots.h"

namespace pallomir {

namespace {

constexpr double kMinute = 60e6;  // microseconds

/// Gives the parts of a plot their places, as drawing it does first, but draws nothing.
void LayOut(QCustomPlot& plot) {
  for (const auto phase : {QCPLayoutElement::upPreparation, QCPLayoutElement::upMargins, QCPLayoutElement::upLayout})
    plot.plotLayout()->update(phase);
}

}  // namespace

void PlotSpikesOnPath(QCustomPlot& plot, const Report& report) {
  const PlotStyle style = PrintStyle(plot);
  EmptyPlot(plot, style);
  const Map& map = report.Occupancy.Grid;
  if (map.Columns == 0) {
    SayInPlot(plot, style, QString::fromStdString(report.Occupancy.Explanation));
    return;
  }
  const double scale = UnitsOf(report.Rate);
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
    LayOut(*plot);
    widest = widest | (plot->axisRect()->margins() + besides(*plot));
  }
  for (QCustomPlot* plot : maps) {
    plot->axisRect()->setAutoMargins(QCP::msNone);
    plot->axisRect()->setMargins(widest - besides(*plot));
  }
}

template <class Value>
void PlotSeries(QCustomPlot& plot, const ClusterLines& spikes, const std::vector<Value>& values, const QString& label,
                QCPRange range) {
  const PlotStyle style = PrintStyle(plot);
  EmptyPlot(plot, style);
  if (spikes.Time.empty()) {
    SayInPlot(plot, style, "The cluster has no spike within its time range.");
    return;
  }
  std::vector<float> times, heights;
  for (size_t i = 0; i < spikes.Time.size(); ++i) {
    times.push_back(static_cast<float>(static_cast<double>(spikes.Time[i] - spikes.First) / kMinute));
    heights.push_back(static_cast<float>(values[i]));
  }
  if (std::none_of(heights.begin(), heights.end(), [](float height) { return std::isfinite(height); })) {
    SayInPlot(plot, style, "No spike of the cluster falls on a usable position sample.");
    return;
  }
  const QCPRange shown = range.size() > 0 ? range : RangeOf(heights);
  const double minutes = static_cast<double>(spikes.Last - spikes.First) / kMinute;
  PlotDots(plot, std::move(times), std::move(heights), minutes, label, shown, style);
}

template void PlotSeries(QCustomPlot&, const ClusterLines&, const std::vector<float>&, const QString&, QCPRange);
template void PlotSeries(QCustomPlot&, const ClusterLines&, const std::vector<double>&, const QString&, QCPRange);

}  // namespace pallomir
