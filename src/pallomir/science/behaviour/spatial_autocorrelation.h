#pragma once

#include "pallomir/files/progress.h"
#include "pallomir/science/behaviour/grid_map.h"

namespace pallomir {

/// The fewest overlapping bins for which a lag has a correlation.
inline constexpr int kFewestOverlapping = 20;

/// Pearson's r between a map and its copy shifted by each lag, over the bins that have a value in both; 2 R - 1 rows
/// and 2 C - 1 columns, with lag 0 in the middle bin, whose centre is at (0, 0) pixels. NaN if fewer than
/// kFewestOverlapping bins overlap, or if either overlapping part has no variance: its values differ by no more than
/// rounding, 1e-12 of the map's largest (Sargolini et al. 2006, Science 312:758). Summed directly: quadratic in the
/// bins, halved by symmetry. Throws Interrupted when the user stops it.
Map SpatialAutocorrelation(const Map& map, const Progress& progress = {});

}  // namespace pallomir
