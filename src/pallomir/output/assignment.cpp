#include "pallomir/output/assignment.h"

#include <algorithm>
#include <chrono>

#include "pallomir/files/mixing_generator.h"

namespace pallomir {

namespace {

constexpr size_t kPointsBetweenLooks = 1024;

/// Uniform random draws, each seeded from the clock. The previous state is added to the seed, so that two points draw
/// differently even if the clock does not advance between them.
class ClockDraws {
 public:
  /// A random number from 0 to count-1.
  int Below(int count) {
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    state_ += static_cast<uint64_t>(now);
    // The product's upper 32 bits are the integer part of the scaled number.
    return static_cast<int>((NextMixed(state_) >> 32) * static_cast<uint64_t>(count) >> 32);
  }

 private:
  uint64_t state_ = 0;
};

}  // namespace

Assignment AssignClusters(const PointTable& points, const Progress& progress) {
  Assignment assignment;
  assignment.Cluster.resize(points.Rows());
  if (points.SlotsInUse() == 0) return assignment;
  const auto first = points.Slot(0);
  for (size_t i = 0; i < points.Rows(); ++i) assignment.Cluster[i] = static_cast<uint8_t>(first[i]);
  if (points.SlotsInUse() == 1) return assignment;

  ClockDraws draws;
  const auto second = points.Slot(1);
  for (size_t i = 0; i < points.Rows(); ++i) {
    if (i % kPointsBetweenLooks == 0) progress.Reached(static_cast<double>(i) / static_cast<double>(points.Rows()));
    if (second[i] == 0) continue;
    assignment.AnyOverlap = true;
    const int count = points.Memberships(i);
    // A list is in the order in which the clusters were entered, so sort each pair.
    for (int b = 1; b < count; ++b)
      for (int a = 0; a < b; ++a) {
        const auto [low, high] = std::minmax(points.Slot(a)[i], points.Slot(b)[i]);
        ++assignment.Overlaps[high][low];
      }
    assignment.Cluster[i] = static_cast<uint8_t>(points.Slot(draws.Below(count))[i]);
  }
  return assignment;
}

}  // namespace pallomir
