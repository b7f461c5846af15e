#include "pallomir/science/behaviour/tracking.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "pallomir/science/behaviour/angles.h"

namespace pallomir {

namespace {

void SetHolds(Track& track) {
  const size_t count = track.Time.size();
  track.Hold.resize(count);
  for (size_t i = 0; i + 1 < count; ++i)
    track.Hold[i] = static_cast<double>(std::min(track.Time[i + 1] - track.Time[i], kLongestHold));
  if (count > 0) track.Hold.back() = std::min(MedianInterval(track.Time), static_cast<double>(kLongestHold));
}

/// The position after `elapsed` of `span` microseconds on the straight line from `from` to `to`.
Position Between(Position from, Position to, int64_t elapsed, int64_t span) {
  const double share = span > 0 ? static_cast<double>(elapsed) / static_cast<double>(span) : 0;
  return {from.X + share * (to.X - from.X), from.Y + share * (to.Y - from.Y)};
}

/// Interpolates the lost samples between the good samples `before` and `after` linearly.
void LayOnLine(Track& track, size_t before, size_t after) {
  const Position from{track.X[before], track.Y[before]}, to{track.X[after], track.Y[after]};
  for (size_t i = before + 1; i < after; ++i) {
    const Position position =
        Between(from, to, track.Time[i] - track.Time[before], track.Time[after] - track.Time[before]);
    track.X[i] = position.X;
    track.Y[i] = position.Y;
  }
}

/// Calls use(i, seconds, dx, dy) for each seen sample with the movement from the first to the last seen sample within
/// kTravelReach, if these differ in time.
template <class Use>
void ForEachTravel(const Track& track, Use use) {
  // Only the samples with a position that was seen, so that both ends of each window advance as pointers.
  std::vector<size_t> seen;
  for (size_t i = 0; i < track.Time.size(); ++i)
    if (track.Seen[i]) seen.push_back(i);
  size_t first = 0, last = 0;
  for (const size_t i : seen) {
    while (track.Time[i] - track.Time[seen[first]] > kTravelReach) ++first;
    while (last + 1 < seen.size() && track.Time[seen[last + 1]] - track.Time[i] <= kTravelReach) ++last;
    const size_t from = seen[first], to = seen[last];
    const double seconds = static_cast<double>(track.Time[to] - track.Time[from]) / 1e6;
    if (seconds > 0) use(i, seconds, track.X[to] - track.X[from], track.Y[to] - track.Y[from]);
  }
}

/// Takes positions as lost that the animal could only have reached faster than settings.JumpCm from the last good one.
void LoseJumps(Positions& positions, const MapSettings& settings) {
  const double farthest = settings.JumpCm * ScaleOf(positions.PixelsPerCm);
  if (farthest == std::numeric_limits<double>::infinity()) return;
  size_t good = positions.Time.size();  // index of the last good sample; none yet
  for (size_t i = 0; i < positions.Time.size(); ++i) {
    if (std::isnan(positions.X[i])) continue;
    if (good < i) {
      const double seconds = static_cast<double>(positions.Time[i] - positions.Time[good]) / 1e6;
      const double moved = std::hypot(positions.X[i] - positions.X[good], positions.Y[i] - positions.Y[good]);
      if (moved > farthest * seconds) {
        positions.X[i] = positions.Y[i] = positions.Direction[i] = kNotKnown;
        continue;
      }
    }
    good = i;
  }
}

void DropOtherSpeeds(Track& track, const MapSettings& settings) {
  if (settings.EverySpeed()) return;
  for (size_t i = 0; i < track.Speed.size(); ++i) {
    if (track.Speed[i] >= settings.SlowestCm && track.Speed[i] <= settings.FastestCm) continue;
    track.X[i] = track.Y[i] = track.Direction[i] = kNotKnown;
    track.Seen[i] = false;
  }
}

template <class Value>
void AppendTo(std::vector<Value>& column, const std::vector<Value>& more) {
  column.insert(column.end(), more.begin(), more.end());
}

void BridgeLostRuns(Track& track) {
  const size_t count = track.Time.size();
  size_t good = count;  // index of the last good sample before i; none yet
  for (size_t i = 0; i < count; ++i) {
    if (!track.Seen[i]) continue;
    if (good < i && track.Time[i] - track.Time[good] <= kLongestBridge) {
      LayOnLine(track, good, i);
      track.Interpolated += static_cast<int64_t>(i - good - 1);
    }
    good = i;
  }
  track.Lost = std::count_if(track.X.begin(), track.X.end(), [](double x) { return std::isnan(x); });
}

}  // namespace

Track TrackWithin(const Positions& positions, const TimeRange& range) {
  const auto begin = std::lower_bound(positions.Time.begin(), positions.Time.end(), range.First);
  const auto end = std::upper_bound(begin, positions.Time.end(), range.Last);
  const auto cut = [first = begin - positions.Time.begin(), count = end - begin](const auto& column) {
    return std::vector(column.begin() + first, column.begin() + first + count);
  };
  Track track;
  track.Time = cut(positions.Time);
  track.X = cut(positions.X);
  track.Y = cut(positions.Y);
  track.Direction = cut(positions.Direction);
  track.Seen.resize(track.X.size());
  std::transform(track.X.begin(), track.X.end(), track.Seen.begin(), [](double x) { return !std::isnan(x); });
  SetHolds(track);
  BridgeLostRuns(track);
  return track;
}

Track TrackOver(const Positions& positions, const LoadedTime& time, const MapSettings& settings) {
  Positions good = positions;
  LoseJumps(good, settings);
  Track all;
  for (const TimeRange& part : time.Parts()) {
    Track track = TrackWithin(good, part);
    track.Speed = SpeedsOf(track, positions.PixelsPerCm);
    if (!positions.HasDirection) track.Direction = DirectionsOfTravel(track, SlowestTravel(positions.PixelsPerCm));
    DropOtherSpeeds(track, settings);
    AppendTo(all.Time, track.Time);
    AppendTo(all.Hold, track.Hold);
    AppendTo(all.X, track.X);
    AppendTo(all.Y, track.Y);
    AppendTo(all.Direction, track.Direction);
    AppendTo(all.Speed, track.Speed);
    AppendTo(all.Seen, track.Seen);
    all.Lost += track.Lost;
    all.Interpolated += track.Interpolated;
  }
  return all;
}

SeenPositions::SeenPositions(const Positions& positions) {
  for (size_t i = 0; i < positions.Time.size(); ++i)
    if (!std::isnan(positions.X[i])) seen_.push_back({positions.Time[i], {positions.X[i], positions.Y[i]}});
}

std::optional<Position> SeenPositions::At(int64_t time) const {
  const auto after =
      std::lower_bound(seen_.begin(), seen_.end(), time, [](const Seen& seen, int64_t t) { return seen.Time < t; });
  if (after == seen_.end()) return {};
  if (after->Time == time) return after->At;
  if (after == seen_.begin()) return {};
  const auto before = after - 1;
  const int64_t span = after->Time - before->Time;
  if (span > kLongestBridge) return {};
  return Between(before->At, after->At, time - before->Time, span);
}

double MedianInterval(const std::vector<int64_t>& time) {
  if (time.size() < 2) return 0;
  std::vector<int64_t> intervals(time.size() - 1);
  for (size_t i = 0; i < intervals.size(); ++i) intervals[i] = time[i + 1] - time[i];
  const auto middle = intervals.begin() + static_cast<std::ptrdiff_t>(intervals.size() / 2);
  std::nth_element(intervals.begin(), middle, intervals.end());
  if (intervals.size() % 2 == 1) return static_cast<double>(*middle);
  return (static_cast<double>(*middle) + static_cast<double>(*std::max_element(intervals.begin(), middle))) / 2;
}

std::vector<double> DirectionsOfTravel(const Track& track, double slowest) {
  std::vector<double> direction(track.Time.size(), kNotKnown);
  ForEachTravel(track, [&](size_t i, double seconds, double dx, double dy) {
    if (std::hypot(dx, dy) > slowest * seconds) direction[i] = DegreesOf(dx, -dy);
  });
  return direction;
}

std::vector<double> SpeedsOf(const Track& track, double pixelsPerCm) {
  std::vector<double> speed(track.Time.size(), kNotKnown);
  ForEachTravel(track, [&](size_t i, double seconds, double dx, double dy) {
    speed[i] = std::hypot(dx, dy) / seconds / ScaleOf(pixelsPerCm);
  });
  return speed;
}

std::vector<int64_t> SamplesOfSpikes(const Track& track, std::span<const int64_t> spikes) {
  std::vector<int64_t> samples(spikes.size(), -1);
  size_t next = 0;  // index of the first sample after the spike
  for (size_t s = 0; s < spikes.size(); ++s) {
    while (next < track.Time.size() && track.Time[next] <= spikes[s]) ++next;
    if (next == 0) continue;
    const size_t i = next - 1;
    if (static_cast<double>(spikes[s] - track.Time[i]) < track.Hold[i]) samples[s] = static_cast<int64_t>(i);
  }
  return samples;
}

}  // namespace pallomir
