#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "components/tracking.h"
#include "files/raw_file.h"
#include "tools/progress.h"
#include "tools/raw/stamp_series.h"

namespace pallomir {

/// Tracked places further apart in time than this, in microseconds, say nothing about what lies between them.
inline constexpr uint64_t kLongestFrameGap = kLongestBridge;

/// Direction of a frame that gives none.
inline constexpr int32_t kNoDirection = -1;

/// One frame of the video tracker; x = y = 0 where it lost the animal.
struct Frame {
  uint64_t Stamp;     ///< microseconds
  int32_t X;          ///< pixels
  int32_t Y;          ///< pixels
  int32_t Direction;  ///< degrees, 0 to 359, or kNoDirection
  bool IsLost() const { return X == 0 && Y == 0; }
};

struct TrackedPlace {
  float X;
  float Y;
};

/// Where the animal was.
struct Tracking {
  std::vector<Frame> Frames;  ///< in order of time; frames with equal stamps as in the file
  std::vector<Frame> Good;    ///< those that are not lost
  StampSeries Stamps;         ///< as they were in the file
  uint64_t LostRuns = 0;      ///< runs of lost frames
  uint64_t Gaps = 0;          ///< intervals between frames that exceed kLongestFrameGap
  uint64_t LongestGap = 0;    ///< microseconds
  double FrameRate = 0;       ///< frames a second, by the median interval; 0 when there is none
};

/// Reads a video file; 24 to 48 bytes of memory a frame. An angle outside 0 to 359, a lost frame and a file whose
/// angles are all 0 (head direction was not tracked) give no direction. Throws CommandError when the file cannot be
/// read.
Tracking ReadTracking(RawFile& file, Progress& progress);

/// The place at `stamp`: linear between the good frames before and after it when they are at most kLongestFrameGap
/// apart, otherwise nothing.
std::optional<TrackedPlace> PlaceAt(const Tracking& tracking, uint64_t stamp);

/// The frame rate that the VideoSampling file is to name, 30 or 60: the one nearer to `frameRate`.
int VideoSampling(double frameRate);

}  // namespace pallomir
