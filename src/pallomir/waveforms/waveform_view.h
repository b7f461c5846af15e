#pragma once

#include "pallomir/projection/view.h"

namespace pallomir {

// Coordinates of the drawing. Even blocks are in the left column and odd ones in the right column, kColumnShift units
// further right, each kBlockShift units below the previous block; a sample is one unit wide and a count one unit high.
inline constexpr double kBlockShift = 200;
inline constexpr double kColumnShift = 36;
inline constexpr double kMarkerSample = 8;  ///< a line is drawn through this sample of either column
inline constexpr double kLeftMarkerTop = 150;
inline constexpr double kMarkerTop = 0;
inline constexpr double kMarkerBottom = -7000;

/// The whole drawing on a surface of width x height device pixels: from -5 to 75 across, from 200 down to -7200.
View WholeWaveformView(int width, int height);

/// The view of a rectangle, given by any two opposite corners in units of the drawing, on the surface of `view`.
/// Returns `view` if the rectangle is narrower than a tenth of a sample or lower than one count.
View ZoomedWaveformView(const View& view, Vertex corner, Vertex opposite);

}  // namespace pallomir
