#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pallomir/files/progress.h"

namespace pallomir {

/// Features as columns, each with one value per spike.
using FeatureColumns = std::vector<std::vector<double>>;

/// How well a cluster is isolated from the other spikes (Schmitzer-Torbert et al. 2005). With D2 the squared
/// Mahalanobis distance from the cluster's mean under the covariance of its spikes (denominator n - 1):
///
/// - IsolationDistance: D2 of the n-th nearest other spike, for a cluster of n spikes;
/// - LRatio: the sum over all other spikes of the probability that a chi-square variable with as many degrees of
///   freedom as there are features exceeds D2, divided by n.
///
/// Both are empty ("n/a") if the cluster has no more spikes than features or linearly dependent features (singular
/// covariance); the distance also if the cluster has more spikes than there are others.
struct Isolation {
  std::optional<double> IsolationDistance;
  std::optional<double> LRatio;
  int64_t Spikes = 0;
  int64_t Others = 0;
  int Features = 0;
};

/// `member[i]` is not 0 if spike i belongs to the cluster. Throws Interrupted if `progress` requests it.
Isolation IsolationOf(const FeatureColumns& columns, std::span<const uint8_t> member, const Progress& progress = {});

}  // namespace pallomir
