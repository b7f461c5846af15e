#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "pallomir/session/session.h"

namespace pallomir {

/// The ticks of the viewer's check boxes, by cluster; 0 stands for the spikes of no cluster. The form has boxes up to
/// 40; those beyond the last cluster match no spike.
inline constexpr int kTicks = 41;
using ClusterTicks = std::array<bool, kTicks>;

/// The spike counter is an offset from LoadStartRecord. It begins before the first spike.
inline constexpr int32_t kBeforeFirstSpike = -1;

/// A spike that passes the ticks, and the cluster in whose colour it is drawn: of the ticked ones the first in its
/// membership list.
struct ShownSpike {
  int64_t Record = 0;  ///< of the parameter file, and of the waveform file
  int Cluster = 0;
  bool operator==(const ShownSpike&) const = default;
};

/// The first ticked cluster of the membership list of loaded point i; 0 for a point of no cluster when 0 is ticked.
std::optional<int> FirstTickedCluster(const PointTable& points, size_t i, const ClusterTicks& ticks);

/// Counts up to the next spike that passes the ticks. Nothing when there is none: the counter then stands at the last
/// spike of the loaded range.
std::optional<ShownSpike> StepForward(const Session& session, const ClusterTicks& ticks, int32_t& counter);

/// Counts down to the spike before that passes the ticks. Nothing when there is none: the counter then stands at the
/// first spike, or before it where it stood there.
std::optional<ShownSpike> StepBack(const Session& session, const ClusterTicks& ticks, int32_t& counter);

}  // namespace pallomir
