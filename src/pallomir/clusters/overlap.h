#pragma once

#include <string>
#include <vector>

#include "pallomir/session/session.h"

namespace pallomir {

/// Places, in the present projection, of the loaded points that are in at least two clusters. Throws CommandError
/// ("There are no overlapping clusters") when there are none.
struct OverlapPoints {
  std::vector<float> X;
  std::vector<float> Y;
};
OverlapPoints PointsInSeveralClusters(const Session& session);

/// One line for each boundary of the current cluster (its two parameters, its number of vertices), then one for the
/// number of points in it.
std::vector<std::string> ClusterInfo(const Session& session);

}  // namespace pallomir
