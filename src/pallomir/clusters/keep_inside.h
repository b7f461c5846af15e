#pragma once

#include <cstddef>
#include <cstdint>

#include "pallomir/session/boundary_table.h"

namespace pallomir {

/// 1 when (x, y) lies inside a boundary, else 0.
///
/// A point is outside when two edges that follow each other (the closing edge last) see it on strictly opposite
/// sides. The test is exact for convex polygons drawn in either direction; of a concave one it accepts the part that
/// lies on the same side of all edges. A point on an edge's line is never rejected by that edge, and the comparison
/// starts anew there; a boundary of 0 or 1 vertices holds every point, one of 2 vertices the points on the line through
/// them.
int16_t PointInBoundary(float x, float y, const Boundary& boundary);

/// The same test for many points: inside[i] becomes 0 where point i is outside and stays as it was elsewhere.
void KeepInside(const Boundary& boundary, const float* x, const float* y, size_t count, uint8_t* inside);

}  // namespace pallomir
