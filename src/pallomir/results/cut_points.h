#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "pallomir/science/loaded_time.h"
#include "pallomir/science/trains/correlogram.h"
#include "pallomir/session/point_table.h"

namespace pallomir {

/// The clusters that a point is in: bit c for cluster c, 1 to 30.
using ClusterSet = uint32_t;

/// The clusters of each row.
std::vector<ClusterSet> ClusterSetsOf(const PointTable& points);

/// From the first to the last loaded spike.
LoadedTime LoadedSpan(const PointTable& points);

/// Closed ranges of record numbers, by the column in which the rows have theirs.
using RecordRanges = std::vector<std::pair<float, float>>;

/// The time of each range from its first to its last loaded spike; ranges that overlap in time are one part. Without
/// `ranges` the whole span.
LoadedTime LoadedTimeOf(const PointTable& points, const std::optional<RecordRanges>& ranges);

/// The points within a loaded time, in time order; those with one stamp in the order of their rows.
struct TimedPoints {
  std::vector<int64_t> Time;  ///< stamps in microseconds
  std::vector<int64_t> Row;

  TimedPoints(const PointTable& points, const LoadedTime& time);

  /// The spikes of a cluster, with their rows as records; `sets` by row.
  std::vector<ClusterSpike> SpikesOf(std::span<const ClusterSet> sets, int cluster) const;

  /// For records with these stamps the rows of their points, or -1: of records and points with one stamp the first
  /// belongs to the first, and so on.
  std::vector<int64_t> RowsOfRecords(std::span<const int64_t> stamps) const;
};

}  // namespace pallomir
