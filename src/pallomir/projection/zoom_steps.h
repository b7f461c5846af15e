#pragma once

#include <array>
#include <map>
#include <utility>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// Scales both displayed ranges by `factor` so that the value `at` stays where it is. Returns false, without a change,
/// if a range would lose its extent, grow beyond what can be drawn, or stay as it is.
bool ZoomAbout(Session& session, Vertex at, double factor);

/// Moves both displayed ranges by a vector in parameter units. Returns false, without a change, if that cannot be
/// drawn.
bool MoveView(Session& session, Vertex by);

/// The earlier ranges of each projection, to step back through.
class ZoomSteps {
 public:
  /// Keeps the displayed ranges, before they are changed.
  void Keep(const Session& session);

  /// Restores the ranges that this projection had before its last change; false if there are none.
  bool Back(Session& session);

 private:
  /// By the two parameters: lower and upper end along X, then along Y.
  std::map<std::pair<int, int>, std::vector<std::array<float, 4>>> steps_;
};

}  // namespace pallomir
