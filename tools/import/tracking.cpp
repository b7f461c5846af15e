#include "tools/import/tracking.h"

#include <algorithm>
#include <iterator>

#include "files/bytes.h"

namespace pallomir {

namespace {

Frame FrameFrom(const unsigned char* record, uint64_t stamp) {
  Frame frame{stamp, LoadLittleEndian<int32_t>(record + kFrameX), LoadLittleEndian<int32_t>(record + kFrameY),
              LoadLittleEndian<int32_t>(record + kFrameAngle)};
  if (frame.IsLost() || frame.Direction < 0 || frame.Direction >= 360) frame.Direction = kNoDirection;
  return frame;
}

/// In microseconds; two frames with one stamp have no interval. 0 when there is none.
uint64_t MedianInterval(const std::vector<Frame>& frames) {
  std::vector<uint64_t> intervals;
  for (size_t f = 1; f < frames.size(); ++f)
    if (frames[f].Stamp > frames[f - 1].Stamp) intervals.push_back(frames[f].Stamp - frames[f - 1].Stamp);
  if (intervals.empty()) return 0;
  const auto middle = intervals.begin() + static_cast<std::ptrdiff_t>(intervals.size() / 2);
  std::nth_element(intervals.begin(), middle, intervals.end());
  return *middle;
}

void FindGaps(Tracking& tracking) {
  const std::vector<Frame>& frames = tracking.Frames;
  for (size_t f = 0; f < frames.size(); ++f) {
    if (frames[f].IsLost() && (f == 0 || !frames[f - 1].IsLost())) ++tracking.LostRuns;
    const uint64_t interval = f == 0 ? 0 : frames[f].Stamp - frames[f - 1].Stamp;
    if (interval > kLongestFrameGap) ++tracking.Gaps;
    tracking.LongestGap = std::max(tracking.LongestGap, interval);
  }
}

}  // namespace

Tracking ReadTracking(RawFile& file, Progress& progress) {
  Tracking tracking;
  tracking.Frames.reserve(static_cast<size_t>(file.RecordCount()));
  file.ForEachRecord(progress, [&](const unsigned char* record, uint64_t) {
    tracking.Stamps.Add(file.StampOf(record));
    tracking.Frames.push_back(FrameFrom(record, file.StampOf(record)));
  });
  std::vector<Frame>& frames = tracking.Frames;
  if (tracking.Stamps.Disordered > 0)
    std::stable_sort(frames.begin(), frames.end(), [](const Frame& a, const Frame& b) { return a.Stamp < b.Stamp; });
  if (std::none_of(frames.begin(), frames.end(), [](const Frame& frame) { return frame.Direction > 0; }))
    for (Frame& frame : frames) frame.Direction = kNoDirection;

  std::copy_if(frames.begin(), frames.end(), std::back_inserter(tracking.Good),
               [](const Frame& frame) { return !frame.IsLost(); });
  FindGaps(tracking);
  const uint64_t interval = MedianInterval(frames);
  tracking.FrameRate = interval == 0 ? 0 : 1e6 / static_cast<double>(interval);
  return tracking;
}

std::optional<TrackedPlace> PlaceAt(const Tracking& tracking, uint64_t stamp) {
  const std::vector<Frame>& good = tracking.Good;
  const auto after =
      std::lower_bound(good.begin(), good.end(), stamp, [](const Frame& frame, uint64_t t) { return frame.Stamp < t; });
  if (after == good.end()) return {};
  if (after->Stamp == stamp) return TrackedPlace{static_cast<float>(after->X), static_cast<float>(after->Y)};
  if (after == good.begin()) return {};
  const auto before = after - 1;
  if (after->Stamp - before->Stamp > kLongestFrameGap) return {};
  const double share = static_cast<double>(stamp - before->Stamp) / static_cast<double>(after->Stamp - before->Stamp);
  const auto between = [share](int32_t a, int32_t b) {
    return static_cast<float>(a + share * (static_cast<double>(b) - a));
  };
  return TrackedPlace{between(before->X, after->X), between(before->Y, after->Y)};
}

int VideoSampling(double frameRate) {
  return frameRate > 45 ? 60 : 30;
}

}  // namespace pallomir
