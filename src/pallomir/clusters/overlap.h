#pragma once

#include <string>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// The positions, in the current projection, of the loaded points that are in at least two clusters. Throws
/// CommandError ("There are no overlapping clusters") if there are none.
struct OverlapPoints {
  std::vector<float> X;
  std::vector<float> Y;
};
OverlapPoints PointsInSeveralClusters(const Session& session);

/// One line for each boundary of the current cluster (its two parameters and number of vertices), then one with the
/// cluster's number of points.
std::vector<std::string> ClusterInfo(const Session& session);

}  // namespace pallomir
