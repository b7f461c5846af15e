#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pallomir/files/progress.h"

namespace pallomir {

/// Features of spikes as columns, a value a spike in each.
using FeatureColumns = std::vector<std::vector<float>>;

/// How far a cluster stands apart from the other spikes (Schmitzer-Torbert et al. 2005). With D2 the squared
/// Mahalanobis distance from the cluster's mean under the covariance of its spikes (n - 1 in the denominator):
///
/// - IsolationDistance: of n spikes of the cluster, D2 of the n-th nearest other spike;
/// - LRatio: the sum over all other spikes of the probability that a chi-square variable with as many degrees of
///   freedom as there are features exceeds D2, divided by n.
///
/// Both are empty ("n/a") where the cluster has more spikes than there are others, not more than it has features, or
/// features that depend on each other (singular covariance).
struct Isolation {
  std::optional<double> IsolationDistance;
  std::optional<double> LRatio;
  int64_t Spikes = 0;
  int64_t Others = 0;
  int Features = 0;
};

/// `member[i]` is not 0 where spike i is of the cluster. Throws Interrupted when `progress` asks for
/// that.
Isolation IsolationOf(const FeatureColumns& columns, std::span<const uint8_t> member, const Progress& progress = {});

}  // namespace pallomir
