#pragma once

#include "pallomir/files/progress.h"
#include "pallomir/science/grid_map.h"

namespace pallomir {

/// Bins that have to overlap at a lag for it to have a correlation.
inline constexpr int kFewestOverlapping = 20;

/// Pearson's r of a map with itself moved by every lag, over the bins that have a value in both copies; 2 R - 1 rows
/// and 2 C - 1 columns, lag 0 in the middle bin, whose middle is at (0, 0) pixels. NaN where fewer than
/// kFewestOverlapping bins overlap, or where one of the overlapping patches has no variance: its values differ by no
/// more than rounding, 1e-12 of the map's largest (Sargolini et al. 2006, Science 312:758). Summed directly: bins
/// squared, halved by symmetry. Throws Interrupted when the user stops it.
Map SpatialAutocorrelation(const Map& map, const Progress& progress = {});

}  // namespace pallomir
