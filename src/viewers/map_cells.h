#pragma once

#include <qcustomplot.h>

#include "components/map_file.h"

namespace pallomir {

/// Gives the colour map the bins of `map`; `scale` is pixels to the unit of the axes. Bins without a value, and those
/// of an occupancy map where the animal never was, are left out.
void FillCells(QCPColorMap& colours, const MapResult& map, double scale);

}  // namespace pallomir
