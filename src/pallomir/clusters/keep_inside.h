#pragma once

#include <cstddef>
#include <cstdint>

#include "pallomir/session/boundary_table.h"

namespace pallomir {

/// 1 if (x, y) is inside a boundary, otherwise 0.
///
/// A point is outside if two consecutive edges (the closing edge last) see it on strictly opposite sides. The test is
/// exact for convex polygons drawn in either direction; of a concave one it accepts the part that is on the same side
/// of all edges. An edge never rejects a point on its own line, and the comparison restarts there; a boundary of 0 or 1
/// vertices accepts every point, one of 2 vertices the points on the line through them.
int16_t PointInBoundary(float x, float y, const Boundary& boundary);

/// The same test for many points: clears inside[i] if point i is outside, otherwise leaves it unchanged.
void KeepInside(const Boundary& boundary, const float* x, const float* y, size_t count, uint8_t* inside);

}  // namespace pallomir
