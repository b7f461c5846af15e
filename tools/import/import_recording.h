#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/import/angle_check.h"
#include "tools/import/tracking.h"
#include "tools/progress_bar.h"

namespace pallomir {

/// What to import, and where to. An empty path stands for no file.
struct ImportRequest {
  std::filesystem::path Spikes{};         ///< .Ntt or .Nse
  std::filesystem::path Video{};          ///< .Nvt
  std::filesystem::path Events{};         ///< .Nev
  std::filesystem::path Out{};            ///< the recording's folder; created if missing
  double PixelsPerCm = 0;                 ///< written to Pos.p; 0 if unknown
  AngleConvention Angles = kVideoAngles;  ///< how the video file measures the head angle
  bool HasAngles = true;                  ///< if false, the video file's angles are meaningless
  bool Replace = false;                   ///< replace existing files with other content
  std::string Date{};                     ///< for the files' headers, as in TextHeader
};

/// Findings of an import. Bytes and records are those of the raw files.
struct ImportReport {
  std::string SpikesName;
  StampSeries Spikes;
  size_t SpikesTrailing = 0;
  uint64_t SpikesPlaced = 0;  ///< spikes with a position
  int WaveformLength = 0;     ///< from the header; 0 if not stated
  bool HasVideo = false;
  Tracking Video;
  AngleCheck Angles;
  size_t VideoTrailing = 0;
  bool HasEvents = false;
  StampSeries Events;
  size_t EventsTrailing = 0;
  std::vector<std::string> Left;  ///< names of existing files that already had the content to be written

  /// The report for the user, as lines.
  std::vector<std::string> Lines() const;
};

/// Makes the files that a session opens: in the folder `Out`, VideoSampling and Pos.p; in its subfolder named after the
/// spike file ("TT1"), copies of the spike and events files, TT1.waveforms and, last, the parameter file TT1.Ntt.parms.
/// Spikes out of time order are sorted, in both files alike. Without a video file Pos.p is not made, and VideoSampling,
/// which every session needs, only if it does not exist.
///
/// Every file is written all or nothing; existing files are checked as described for PutInPlace(). Throws CommandError
/// if a file cannot be read or written, or is not of the kind requested, and Interrupted when the user stops it.
ImportReport ImportRecording(const ImportRequest& request, ProgressBar& progress);

}  // namespace pallomir
