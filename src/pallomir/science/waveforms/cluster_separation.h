#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/science/measured.h"
#include "pallomir/science/waveforms/cluster_quality.h"

namespace pallomir {

/// Count, mean and scatter of some spikes' features. The scatter is the matrix of the sums of products about the mean,
/// row by row.
struct FeatureMoments {
  double Count = 0;
  std::vector<double> Mean;
  std::vector<double> Scatter;
};

/// Of all spikes, and of those for which `member` is not 0.
FeatureMoments MomentsOf(const FeatureColumns& columns);
FeatureMoments MomentsOf(const FeatureColumns& columns, std::span<const uint8_t> member);

/// How a cluster differs from all other spikes, in the features of Isolation.
struct Separation {
  /// d': the distance of the means of both sides along the direction that separates them best (Fisher's linear
  /// discriminant), over the root of their mean variance along it (Green and Swets 1966).
  Measured Discriminability;
  /// The share of cluster spikes among the 5 nearest neighbours of a cluster spike, and of any other spike (Chung et
  /// al. 2017, Neuron 95:1381), by Euclidean distance in features divided by their standard deviation over all spikes.
  /// Both sides are thinned evenly to 5,000 spikes. A feature that all spikes have in common is left out.
  Measured NeighbourHits, NeighbourMisses;
};

/// `member[i]` is not 0 if spike i belongs to the cluster; `all` and `cluster` are the moments of all spikes and of the
/// cluster's. Throws Interrupted if `progress` requests it.
Separation SeparationOf(const FeatureColumns& columns, std::span<const uint8_t> member, const FeatureMoments& all,
                        const FeatureMoments& cluster, const Progress& progress = {});

/// The distance of the means of two clusters under their pooled covariance (Mahalanobis); a spike may be in both.
Measured ClusterDistance(const FeatureMoments& one, const FeatureMoments& other);

}  // namespace pallomir
