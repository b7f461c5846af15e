#pragma once

#include <qcustomplot.h>

#include <vector>

namespace pallomir {

// Drawing hundreds of thousands of dots. Up to some thousands, dots and lines are vector shapes; beyond that they
// become one image in print resolution: half a million dots are drawn in some milliseconds, and a PDF has kilobytes
// instead of megabytes.

/// Adds a round dot at each position. Positions that are not finite are skipped.
void AddDots(QCPAxis* x, QCPAxis* y, std::vector<float> xs, std::vector<float> ys, QColor colour, double diameter);

/// Adds a thin line through the positions, with a gap at any that is not finite.
void AddLine(QCPAxis* x, QCPAxis* y, std::vector<float> xs, std::vector<float> ys, QColor colour);

}  // namespace pallomir
