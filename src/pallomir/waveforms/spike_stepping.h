#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "pallomir/session/session.h"

namespace pallomir {

/// The ticks of the viewer's check boxes, by cluster; 0 stands for spikes in no cluster. The form has boxes up to 40;
/// those beyond the last cluster match no spike.
inline constexpr int kTicks = 41;
using ClusterTicks = std::array<bool, kTicks>;

/// The spike counter is an offset, in records, from LoadStartRecord. It starts before the first spike.
inline constexpr int32_t kBeforeFirstSpike = -1;

/// A spike that passes the ticks, and the cluster whose colour it is drawn in: the first ticked one in its membership
/// list.
struct ShownSpike {
  int64_t Record = 0;  ///< in the parameter file and in the waveform file
  int Cluster = 0;
  bool operator==(const ShownSpike&) const = default;
};

/// The first ticked cluster in the membership list of loaded point i; 0 for a point in no cluster if 0 is ticked.
std::optional<int> FirstTickedCluster(const PointTable& points, size_t i, const ClusterTicks& ticks);

/// Advances to the next spike that passes the ticks. Empty if there is none: the counter is then at the last spike of
/// the loaded range.
std::optional<ShownSpike> StepForward(const Session& session, const ClusterTicks& ticks, int32_t& counter);

/// Goes back to the previous spike that passes the ticks. Empty if there is none: the counter is then at the first
/// spike, or stays before it.
std::optional<ShownSpike> StepBack(const Session& session, const ClusterTicks& ticks, int32_t& counter);

}  // namespace pallomir
