#include "tools/import/tracking.h"

#include <algorithm>
#include <cmath>

#include "pallomir/recorded/position_video.h"

namespace pallomir {

namespace {

void FindGaps(Tracking& tracking) {
  const Positions& samples = tracking.Samples;
  bool wasLost = false;
  for (size_t f = 0; f < samples.Time.size(); ++f) {
    const bool lost = std::isnan(samples.X[f]);
    tracking.Lost += lost;
    tracking.LostRuns += lost && !wasLost;
    wasLost = lost;
    const int64_t interval = f == 0 ? 0 : samples.Time[f] - samples.Time[f - 1];
    tracking.Gaps += interval > kLongestBridge;
    tracking.LongestGap = std::max(tracking.LongestGap, static_cast<uint64_t>(interval));
  }
}

}  // namespace

Tracking ReadTracking(RawFile& file, ProgressBar& progress) {
  Tracking tracking;
  tracking.Samples.Name = file.Name();
  tracking.Samples.Angles = kVideoAngles;
  file.ForEachRecord(progress, [&](const unsigned char* record, uint64_t) {
    tracking.Stamps.Add(file.StampOf(record));
    AppendFrame(tracking.Samples, record);
  });
  RepairSamples(tracking.Samples);
  FindGaps(tracking);
  const double interval = MedianInterval(tracking.Samples.Time);
  tracking.FrameRate = interval > 0 ? 1e6 / interval : 0;
  return tracking;
}

int VideoSampling(double frameRate) {
  return frameRate > 45 ? 60 : 30;
}

}  // namespace pallomir
