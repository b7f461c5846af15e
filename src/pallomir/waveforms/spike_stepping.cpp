#include "pallomir/waveforms/spike_stepping.h"

#include <algorithm>

namespace pallomir {

namespace {

/// The index of the last spike; kBeforeFirstSpike if no points are loaded.
int32_t LastSpike(const Session& session) {
  return static_cast<int32_t>(session.Points.Rows()) - 1;
}

std::optional<ShownSpike> SpikeAt(const Session& session, const ClusterTicks& ticks, int32_t counter) {
  const auto cluster = FirstTickedCluster(session.Points, static_cast<size_t>(counter), ticks);
  if (!cluster) return {};
  return ShownSpike{int64_t{session.LoadStartRecord} + counter, *cluster};
}

}  // namespace

std::optional<int> FirstTickedCluster(const PointTable& points, size_t i, const ClusterTicks& ticks) {
  const int first = points.SlotsInUse() > 0 ? points.Slot(0)[i] : 0;
  if (first == 0) return ticks[0] ? std::optional(0) : std::nullopt;
  for (int slot = 0; slot < points.SlotsInUse(); ++slot) {
    const int cluster = points.Slot(slot)[i];
    if (cluster == 0) break;  // end of the list, not cluster 0
    if (ticks[cluster]) return cluster;
  }
  return {};
}

std::optional<ShownSpike> StepForward(const Session& session, const ClusterTicks& ticks, int32_t& counter) {
  const int32_t last = LastSpike(session);
  counter = std::max(counter, kBeforeFirstSpike);
  while (counter < last)
    if (const auto shown = SpikeAt(session, ticks, ++counter)) return shown;
  return {};
}

std::optional<ShownSpike> StepBack(const Session& session, const ClusterTicks& ticks, int32_t& counter) {
  // A range loaded in the meantime may be shorter than the counter.
  counter = std::min(counter, LastSpike(session) + 1);
  while (counter > 0)
    if (const auto shown = SpikeAt(session, ticks, --counter)) return shown;
  return {};
}

}  // namespace pallomir
