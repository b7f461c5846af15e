#pragma once

#include <cstdint>
#include <vector>

#include "pallomir/files/progress.h"
#include "pallomir/session/session.h"

namespace pallomir {

/// One cluster for every loaded point.
struct Assignment {
  /// By point 0..M-1; 0 for a point that is in no cluster.
  std::vector<uint8_t> Cluster;
  /// How many points are in both of two clusters, as [higher][lower].
  ByCluster<ByCluster<int64_t>> Overlaps{};
  bool AnyOverlap = false;
};

/// Gives every point the cluster that it is in; one of them at random, each as likely as the others, where it is in
/// several. The draw is seeded from the clock for each such point: a second run decides otherwise.
Assignment AssignClusters(const PointTable& points, const Progress& progress = {});

}  // namespace pallomir
