#pragma once

#include <string>
#include <vector>

#include "pallomir/projection/stroke.h"
#include "pallomir/projection/view.h"

namespace pallomir {

/// How a polygon differs from one that the inside test accepts completely.
struct PolygonFaults {
  /// Indices of the corners at which it turns against its own direction.
  std::vector<int> Inward;
  /// Corners at the same position as the one before: the edges around them are not compared. At the polygon's beginning
  /// and end this changes nothing, since the last edge is not compared with the first.
  std::vector<int> Repeated;
  /// It winds round more than once.
  bool Crossing = false;

  bool Any() const { return Crossing || !Inward.empty() || !Repeated.empty(); }
  /// One sentence for the user; empty if there is no fault.
  std::string Sentence() const;
};
PolygonFaults FaultsOf(const Boundary& boundary);

/// Shades the part of a view that the inside test accepts.
void ShadeCountedPart(const Canvas& canvas, const View& view, const Boundary& boundary);

}  // namespace pallomir
