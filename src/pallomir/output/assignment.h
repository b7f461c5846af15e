#pragma once

#include <cstdint>
#include <vector>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// One cluster for every loaded point.
struct Assignment {
  /// By point 0..M-1; 0 for a point in no cluster.
  std::vector<uint8_t> Cluster;
  /// Number of points in both of two clusters, as [higher][lower].
  ByCluster<ByCluster<int64_t>> Overlaps{};
  bool AnyOverlap = false;
};

/// Assigns each point its cluster; if it is in several, one of them at random with equal probability. The draw is
/// seeded from the clock for each such point, so that another run gives another result.
Assignment AssignClusters(const PointTable& points, const Progress& progress = {});

}  // namespace pallomir
