#pragma once

#include <qcustomplot.h>

#include "pallomir/results/map_file.h"

namespace pallomir {

/// Copies the bins of `map` to the colour map; `scale` is pixels per axis unit. Bins without a value, and unvisited
/// bins of an occupancy map, are left out.
void FillCells(QCPColorMap& colours, const MapResult& map, double scale);

/// The value of the last colour of a map: its maximum; for an occupancy map the 99th percentile of the visited bins, so
/// that one long stay does not compress the colours of all others.
double ColoursEnd(const MapResult& map);

/// Sets the range of the colour scale from 0 (-1 for an autocorrelation) to the value of the last colour, with about
/// `numbers` tick labels. The unit is the scale's label, or is shown at its end, "≥ 3.2 s", if higher values share that
/// colour.
void SetScale(QCPColorScale& scale, const MapResult& map, int numbers);

}  // namespace pallomir
