#pragma once

#include <cstdint>

#include "pallomir/files/raw_file.h"
#include "pallomir/science/behaviour/tracking.h"
#include "tools/progress_bar.h"
#include "tools/raw/stamp_series.h"

namespace pallomir {

/// The data of the video tracker, with figures on its quality.
struct Tracking {
  Positions Samples;        ///< repaired as for the analyses; angles as recorded
  StampSeries Stamps;       ///< as in the file
  uint64_t Lost = 0;        ///< frames in which the animal was lost
  uint64_t LostRuns = 0;    ///< runs of such frames
  uint64_t Gaps = 0;        ///< intervals between frames longer than kLongestBridge
  uint64_t LongestGap = 0;  ///< microseconds
  double FrameRate = 0;     ///< frames per second, from the median interval; 0 if there is none
};

/// Reads a video file; takes 32 to 64 bytes of memory per frame. Throws CommandError if the file cannot be read.
Tracking ReadTracking(RawFile& file, ProgressBar& progress);

/// The frame rate for the VideoSampling file, 30 or 60: the one nearer to `frameRate`.
int VideoSampling(double frameRate);

}  // namespace pallomir
