#pragma once

#include <cstdint>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// How many loaded points a cluster would hold with another shape of one of its boundaries, for a preview while that
/// shape changes. The points inside all its other boundaries are collected once; each count then tests only these.
class LiveCount {
 public:
  /// For boundary `b` of cluster `c`. `session` must outlive this object.
  LiveCount(const Session& session, int c, int b);

  /// The number of points that ClassifyCluster would enter if `boundary`, on the same two parameters, were in place of
  /// the original.
  int64_t Count(const Boundary& boundary) const;

 private:
  const Session& session_;
  /// The other boundaries' points. Without another boundary the columns themselves are tested.
  bool narrowed_;
  std::vector<float> x_, y_;
};

}  // namespace pallomir
