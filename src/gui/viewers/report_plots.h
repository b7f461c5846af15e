#pragma once

#include <qcustomplot.h>

#include <span>

#include "pallomir/analyses/report.h"

namespace pallomir {

// Fill the plots of the report sheet. A plot without data says why.

/// The animal's path in gray with the spikes on it, as the camera sees them.
void PlotSpikesOnPath(QCustomPlot& plot, const Report& report);

/// Gives the axes of all maps the same size, once they are laid out on the sheet. Empty maps are unchanged.
void AlignMaps(std::span<QCustomPlot* const> plots);

/// A value of each spike against time in minutes from the start of the time range. `range` is the range of the value
/// axis; if invalid, that of the values.
template <class Value>
void PlotSeries(QCustomPlot& plot, const ClusterLines& spikes, const std::vector<Value>& values, const QString& label,
                QCPRange range = {});

}  // namespace pallomir
