#pragma once

#include <qcustomplot.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "gui/viewers/plot_style.h"
#include "pallomir/results/map_file.h"
#include "pallomir/science/behaviour/head_direction.h"
#include "pallomir/science/waveforms/average_waveform.h"

namespace pallomir {

// Small plots, several of which stand beside each other. Each replaces what a plot showed.

/// Removes everything from a plot; no axes yet.
void EmptyPlot(QCustomPlot& plot, const PlotStyle& style);

/// Why a plot is empty.
void SayInPlot(QCustomPlot& plot, const PlotStyle& style, const QString& text);

/// Adds axes with few numbers in a small font.
QCPAxisRect* AddAxes(QCustomPlot& plot, QCPAxisRect* rect, const PlotStyle& style);

/// Axes for the arena as the camera sees it: y downward, units equally long on both axes. `scale` is pixels per unit.
QCPAxisRect* AddArena(QCustomPlot& plot, const PlotStyle& style, const Map& map, double scale);

/// Pixels per axis unit of a map, and the unit.
double UnitsOf(const MapResult& map);
QString LengthUnit(const MapResult& map);

/// The range of finite values, with a margin.
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

/// A map with its colour scale below; why it is empty, if it is.
void PlotMap(QCustomPlot& plot, const MapResult& map, const PlotStyle& style);
/// The map alone, with its highest value and its width in words.
void PlotPlainMap(QCustomPlot& plot, const MapResult& map, const PlotStyle& style);

/// The average spike on each wire, with a band of one standard deviation.
void PlotAverageWaveform(QCustomPlot& plot, const AverageWaveform& average, bool inMicrovolts, const PlotStyle& style);

/// Bin k reaches from edges[k] to edges[k + 1] and has counts[k].
struct Bars {
  QVector<double> Edges, Counts;
  QString Across, Up;  ///< what the axes show
  bool Logarithmic = false;
  QVector<double> Marks;  ///< dashed vertical lines
};
void PlotBars(QCustomPlot& plot, const Bars& bars, const PlotStyle& style);

/// The rate by direction as a closed curve, with the mean vector.
void PlotDirection(QCustomPlot& plot, const DirectionTuning& tuning, const PlotStyle& style);

/// Dots at times, in minutes from 0 to `minutes`.
void PlotDots(QCustomPlot& plot, std::vector<float> times, std::vector<float> values, double minutes,
              const QString& label, QCPRange range, const PlotStyle& style);

}  // namespace pallomir
