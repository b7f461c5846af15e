#pragma once

#include <string>
#include <vector>

#include "pallomir/projection/stroke.h"
#include "pallomir/projection/view.h"

namespace pallomir {

/// How a polygon differs from one whose whole area the inside test accepts.
struct PolygonFaults {
  /// Corners at which it turns against its own direction, by index.
  std::vector<int> Inward;
  /// Corners that lie where the one before them does: the edges about them are not compared. At the polygon's beginning
  /// and end that changes nothing, since the last edge is not compared with the first.
  std::vector<int> Repeated;
  /// It goes round more than once.
  bool Crossing = false;

  bool Any() const { return Crossing || !Inward.empty() || !Repeated.empty(); }
  /// One sentence; empty where there is no fault.
  std::string Sentence() const;
};
PolygonFaults FaultsOf(const Boundary& boundary);

/// Shades what the inside test accepts of a view.
void ShadeCountedPart(const Canvas& canvas, const View& view, const Boundary& boundary);

}  // namespace pallomir
