#include "gui/live/cell_plots.h"

#include <qcustomplot.h>

#include <algorithm>

#include "gui/viewers/small_plots.h"

namespace pallomir {

namespace {

constexpr double kRefractoryMilliseconds = static_cast<double>(kRefractoryPeriod) / 1000;
constexpr double kMinute = 60e6;  // microseconds

void SayWhatIsMissing(QCustomPlot& plot, const std::string& why, const PlotStyle& style) {
  EmptyPlot(plot, style);
  SayInPlot(plot, style, why.empty() ? QString("…") : QString::fromStdString(why));
}

void DrawWaveform(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut& cut, const PlotStyle& style) {
  if (cluster.Measured[IndexOf(MeasurePart::Waveform)])
    PlotAverageWaveform(plot, cluster.Measures.Average, cut.InMicrovolts, style);
  else
    SayWhatIsMissing(plot, cut.WhyNoSpikeFile, style);
}

Bars BarsOf(const LagHistogram& lags) {
  const double width = static_cast<double>(lags.Width) / 1000;
  const auto bins = static_cast<int>(lags.Pairs.size());
  Bars bars;
  for (int k = -bins; k <= bins; ++k) bars.Edges << k * width;
  for (int k = -bins; k < bins; ++k) bars.Counts << static_cast<double>(lags.Pairs[k < 0 ? -k - 1 : k]);
  bars.Across = "lag (ms)";
  bars.Up = "pairs";
  return bars;
}

void DrawNearLags(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut&, const PlotStyle& style) {
  if (!cluster.Plots.Train) return SayWhatIsMissing(plot, {}, style);
  Bars bars = BarsOf(cluster.Plots.Train->Lags.Near);
  bars.Marks = {-kRefractoryMilliseconds, kRefractoryMilliseconds};
  PlotBars(plot, bars, style);
}

void DrawFarLags(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut&, const PlotStyle& style) {
  if (!cluster.Plots.Train) return SayWhatIsMissing(plot, {}, style);
  PlotBars(plot, BarsOf(cluster.Plots.Train->Lags.Far), style);
}

void DrawIntervals(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut&, const PlotStyle& style) {
  if (!cluster.Plots.Train) return SayWhatIsMissing(plot, {}, style);
  Bars bars;
  for (int k = 0; k <= kLogBins; ++k) bars.Edges << LogEdge(k);
  for (const int64_t count : cluster.Plots.Train->Intervals.Counts) bars.Counts << static_cast<double>(count);
  bars.Across = "interval (ms)";
  bars.Up = "intervals";
  bars.Logarithmic = true;
  bars.Marks = {kRefractoryMilliseconds};
  PlotBars(plot, bars, style);
}

void DrawRateMap(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut& cut, const PlotStyle& style) {
  if (!cluster.Plots.Place) return SayWhatIsMissing(plot, cut.WhyNoPositions, style);
  MapResult map;
  map.Grid = cluster.Plots.Place->Rate;
  map.PixelsPerCm = cluster.Plots.Place->PixelsPerCm;
  map.Explanation = map.Grid.Values.empty() ? "No position is known." : "";
  PlotPlainMap(plot, map, style);
}

void DrawDirection(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut& cut, const PlotStyle& style) {
  if (!cluster.Plots.Place) return SayWhatIsMissing(plot, cut.WhyNoPositions, style);
  PlotDirection(plot, cluster.Plots.Place->Direction, style);
}

/// The heights on the wire where the cell is largest, with the rate as a line behind them.
void DrawOverTime(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut& cut, const PlotStyle& style) {
  const int wire = cluster.Measures.Waveform.Largest;
  if (!cluster.Plots.Heights || cluster.Plots.Heights->Time.empty() || wire < 0)
    return SayWhatIsMissing(plot, cut.WhyNoSpikeFile, style);
  const SpikeHeights& heights = *cluster.Plots.Heights;
  std::vector<float> times, values;
  times.reserve(heights.Time.size());
  values.reserve(heights.Time.size());
  for (size_t i = 0; i < heights.Time.size(); ++i) {
    times.push_back(static_cast<float>(static_cast<double>(heights.Time[i] - heights.Time.front()) / kMinute));
    values.push_back(heights.Counts[wire][i]);
  }
  const QCPRange range = RangeOf(values);
  const double minutes = static_cast<double>(heights.Time.back() - heights.Time.front()) / kMinute;
  PlotDots(plot, std::move(times), std::move(values), minutes, QString("counts, wire %1").arg(wire + 1), range, style);
  if (!cluster.Plots.Train) return;
  QCPAxisRect* rect = plot.axisRect();
  QCPAxis* right = rect->axis(QCPAxis::atRight);
  auto* rate = new QCPGraph(rect->axis(QCPAxis::atBottom), right);
  const std::vector<double>& rates = cluster.Plots.Train->Rate;
  for (size_t k = 0; k < rates.size(); ++k)
    rate->addData((static_cast<double>(k) + 0.5) / static_cast<double>(rates.size()) * minutes, rates[k]);
  rate->setPen(QPen(style.Mark, 1.2));
  right->setRange(0, 1.05 * std::max(*std::max_element(rates.begin(), rates.end()), 1e-3));
  right->setTicks(true);
  right->setTickLabels(true);
  right->setLabel("spikes/s");
  right->setTickLabelColor(style.Mark);
  right->setLabelColor(style.Mark);
}

void DrawSpatialLags(QCustomPlot& plot, const LiveCluster& cluster, const LiveCut& cut, const PlotStyle& style) {
  if (!cluster.Plots.SpatialLags) return SayWhatIsMissing(plot, cut.WhyNoPositions, style);
  MapResult map;
  map.Kind = MapKind::SpatialAutocorrelation;
  map.Grid = *cluster.Plots.SpatialLags;
  map.PixelsPerCm = cluster.Plots.Place ? cluster.Plots.Place->PixelsPerCm : 0;
  map.Explanation = map.Grid.Values.empty() ? "No position is known." : "";
  PlotPlainMap(plot, map, style);
}

}  // namespace

CellPlot::Source CellPlot::SourceOf(const LiveCluster& cluster, const LiveCut& cut) const {
  const CellPlots& plots = cluster.Plots;
  const int number = cluster.Measures.Number;
  switch (Part) {
    case MeasurePart::Train:
      return {number, plots.Train, {}, {}};
    case MeasurePart::Place:
      return {number, plots.Place, plots.SpatialLags, cut.WhyNoPositions};
    default:
      return {number, plots.Heights, plots.Train, cut.WhyNoSpikeFile};
  }
}

const std::array<CellPlot, kCellPlots> kPlotsOfCell{{
    {"cellWaveform", "Mean waveform", "The mean waveform on each wire, with a band of one standard deviation",
     MeasurePart::Waveform, DrawWaveform},
    {"cellRateMap", "Rate map", "Where the cell fires", MeasurePart::Place, DrawRateMap},
    {"cellDirection", "Direction", "The rate by head direction, with the mean vector", MeasurePart::Place,
     DrawDirection},
    {"cellNearLags", "Autocorrelation, 50 ms", "Pairs of spikes by lag; lines at 2 ms", MeasurePart::Train,
     DrawNearLags},
    {"cellFarLags", "Autocorrelation, 500 ms", "Pairs of spikes by lag: rhythms", MeasurePart::Train, DrawFarLags},
    {"cellIntervals", "Log ISI", "Intervals between spikes; the line is at 2 ms", MeasurePart::Train, DrawIntervals},
    {"cellOverTime", "Height and rate over time",
     "The height of each spike on the largest wire, and the firing rate (right axis)", MeasurePart::Waveform,
     DrawOverTime},
    {"cellSpatialLags", "Spatial autocorrelation", "The rate map correlated with itself at every shift",
     MeasurePart::Place, DrawSpatialLags},
}};

}  // namespace pallomir
