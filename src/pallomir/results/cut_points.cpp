#include "pallomir/results/cut_points.h"

#include <algorithm>
#include <numeric>

#include "pallomir/science/times.h"

namespace pallomir {

namespace {

int64_t TimeOf(uint64_t stamp) {
  return static_cast<int64_t>(std::min<uint64_t>(stamp, kFarthestStamp));
}

/// 0 to values.size() - 1 in the order of the values; equal ones stay in order.
std::vector<int64_t> OrderOf(std::span<const int64_t> values) {
  std::vector<int64_t> order(values.size());
  std::iota(order.begin(), order.end(), int64_t{0});
  if (!std::is_sorted(values.begin(), values.end()))
    std::stable_sort(order.begin(), order.end(), [&](int64_t a, int64_t b) { return values[a] < values[b]; });
  return order;
}

/// From the first to the last of the rows that `counts`; reversed if there is none.
template <class Counts>
TimeRange SpanOf(const PointTable& points, Counts counts) {
  TimeRange range{kFarthestStamp, -kFarthestStamp};
  const auto stamps = points.Stamps().first(points.Rows());
  for (size_t i = 0; i < stamps.size(); ++i) {
    if (stamps[i] > static_cast<uint64_t>(kFarthestStamp) || !counts(i)) continue;
    range.First = std::min(range.First, static_cast<int64_t>(stamps[i]));
    range.Last = std::max(range.Last, static_cast<int64_t>(stamps[i]));
  }
  return range;
}

}  // namespace

std::vector<ClusterSet> ClusterSetsOf(const PointTable& points) {
  std::vector<ClusterSet> sets(points.Rows());
  for (int slot = 0; slot < points.SlotsInUse(); ++slot) {
    const auto members = points.Slot(slot);
    for (size_t i = 0; i < sets.size(); ++i) sets[i] |= (ClusterSet{1} << members[i]) & ~ClusterSet{1};
  }
  return sets;
}

LoadedTime LoadedSpan(const PointTable& points) {
  return LoadedTime({SpanOf(points, [](size_t) { return true; })});
}

LoadedTime LoadedTimeOf(const PointTable& points, const std::optional<RecordRanges>& ranges) {
  if (!ranges) return LoadedSpan(points);
  const auto records = points.Column(kRecordSlot);
  std::vector<TimeRange> spans;
  for (const auto& range : *ranges) {
    const TimeRange span =
        SpanOf(points, [&](size_t i) { return records[i] >= range.first && records[i] <= range.second; });
    if (span.First <= span.Last) spans.push_back(span);
  }
  std::sort(spans.begin(), spans.end(), [](const TimeRange& a, const TimeRange& b) { return a.First < b.First; });
  std::vector<TimeRange> parts;
  for (const TimeRange& span : spans)
    if (!parts.empty() && span.First <= parts.back().Last)
      parts.back().Last = std::max(parts.back().Last, span.Last);
    else
      parts.push_back(span);
  return LoadedTime(std::move(parts));
}

TimedPoints::TimedPoints(const PointTable& points, const LoadedTime& time) {
  const auto stamps = points.Stamps().first(points.Rows());
  std::vector<int64_t> times, rows;
  times.reserve(stamps.size());
  rows.reserve(stamps.size());
  for (size_t i = 0; i < stamps.size(); ++i) {
    const int64_t stamp = TimeOf(stamps[i]);
    if (!time.At(stamp)) continue;
    times.push_back(stamp);
    rows.push_back(static_cast<int64_t>(i));
  }
  const std::vector<int64_t> order = OrderOf(times);
  Time.reserve(order.size());
  Row.reserve(order.size());
  for (const int64_t i : order) {
    Time.push_back(times[i]);
    Row.push_back(rows[i]);
  }
}

std::vector<ClusterSpike> TimedPoints::SpikesOf(std::span<const ClusterSet> sets, int cluster) const {
  std::vector<ClusterSpike> spikes;
  for (size_t i = 0; i < Row.size(); ++i)
    if (sets[Row[i]] >> cluster & 1) spikes.push_back({Time[i], Row[i]});
  return spikes;
}

std::vector<int64_t> TimedPoints::RowsOfRecords(std::span<const int64_t> stamps) const {
  std::vector<int64_t> rows(stamps.size(), -1);
  size_t next = 0;
  for (const int64_t record : OrderOf(stamps)) {
    while (next < Time.size() && Time[next] < stamps[record]) ++next;
    if (next < Time.size() && Time[next] == stamps[record]) rows[record] = Row[next++];
  }
  return rows;
}

}  // namespace pallomir
