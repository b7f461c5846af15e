#pragma once

#include <cstdint>

#include "pallomir/files/raw_file.h"
#include "pallomir/science/tracking.h"
#include "tools/progress_bar.h"
#include "tools/raw/stamp_series.h"

namespace pallomir {

/// What the video tracker recorded, and how well.
struct Tracking {
  Positions Samples;        ///< repaired as for the analyses; angles as recorded
  StampSeries Stamps;       ///< as they were in the file
  uint64_t Lost = 0;        ///< frames that lost the animal
  uint64_t LostRuns = 0;    ///< runs of such frames
  uint64_t Gaps = 0;        ///< intervals between frames that exceed kLongestBridge
  uint64_t LongestGap = 0;  ///< microseconds
  double FrameRate = 0;     ///< frames a second, by the median interval; 0 when there is none
};

/// Reads a video file; 32 to 64 bytes of memory a frame. Throws CommandError when the file cannot be read.
Tracking ReadTracking(RawFile& file, ProgressBar& progress);

/// The frame rate that the VideoSampling file is to name, 30 or 60: the one nearer to `frameRate`.
int VideoSampling(double frameRate);

}  // namespace pallomir
