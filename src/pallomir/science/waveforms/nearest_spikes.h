#pragma once

#include <cstddef>
#include <vector>

#include "pallomir/science/waveforms/cluster_quality.h"

namespace pallomir {

/// Finds the nearest of some thousands of points by Euclidean distance. The points are kept in boxes of up to 64; a box
/// that is farther away than what was found already is skipped.
class NearestSpikes {
 public:
  static constexpr size_t kNearest = 5;

  /// `points` as columns, one per dimension; at least kNearest + 1 points.
  explicit NearestSpikes(const FeatureColumns& points);

  /// The indices of the kNearest points nearest to point `index`, itself excluded; of equally near ones those of lower
  /// index.
  std::vector<size_t> Of(size_t index) const;

 private:
  struct Box {
    size_t Begin, End;
    std::vector<double> Low, High;
  };
  void Split(size_t begin, size_t end);

  FeatureColumns points_;      ///< sorted into boxes
  std::vector<size_t> index_;  ///< of each sorted point
  std::vector<size_t> place_;  ///< of each index among the sorted points
  std::vector<Box> boxes_;
};

}  // namespace pallomir
