#pragma once

#include <qcustomplot.h>

#include <vector>

namespace pallomir {

// What is drawn by the hundred thousand. Up to some thousands, dots and lines are shapes that stay sharp at any size;
// beyond, they become one picture, as fine as print asks for: half a million dots are drawn in some milliseconds, and a
// PDF of them has kilobytes instead of megabytes.

/// Adds a round dot at each place. Places that are not finite are left out.
void AddDots(QCPAxis* x, QCPAxis* y, std::vector<float> xs, std::vector<float> ys, QColor colour, double diameter);

/// Adds a thin line through the places, broken where one is not finite.
void AddLine(QCPAxis* x, QCPAxis* y, std::vector<float> xs, std::vector<float> ys, QColor colour);

}  // namespace pallomir
