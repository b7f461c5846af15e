#pragma once

#include <qcustomplot.h>

#include "pallomir/results/map_file.h"

namespace pallomir {

/// Gives the colour map the bins of `map`; `scale` is pixels to the unit of the axes. Bins without a value, and those
/// of an occupancy map where the animal never was, are left out.
void FillCells(QCPColorMap& colours, const MapResult& map, double scale);

/// The value at which the colours of a map end: its highest; of an occupancy map the 99th percentile of the visited
/// bins, so that one long stay does not cost all others their colours.
double ColoursEnd(const MapResult& map);

/// Lets the colour scale reach from 0 (of an autocorrelation, from -1 to 1) to where the colours end, with about
/// `numbers` numbers. The unit is its label, or stands at its end, "≥ 3.2 s", where higher values have that colour.
void SetScale(QCPColorScale& scale, const MapResult& map, int numbers);

}  // namespace pallomir
