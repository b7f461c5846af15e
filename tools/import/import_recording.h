#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/import/angle_check.h"
#include "tools/import/tracking.h"
#include "tools/progress_bar.h"

namespace pallomir {

/// What to import, and where to. Paths in the system's own notation; an empty one means that there is no such file.
struct ImportRequest {
  std::string Spikes{};                   ///< .Ntt or .Nse
  std::string Video{};                    ///< .Nvt
  std::string Events{};                   ///< .Nev
  std::string Out{};                      ///< the recording's folder; made where it is missing
  double PixelsPerCm = 0;                 ///< written into Pos.p; 0 when it is not known
  AngleConvention Angles = kVideoAngles;  ///< how the video file counts the angle of the head
  bool HasAngles = true;                  ///< otherwise those of the video file mean nothing
  bool Replace = false;                   ///< files that stand there already and hold something else
  std::string Date{};                     ///< of the files' headers, as TextHeader takes it
};

/// What was met. Bytes and records are of the raw files.
struct ImportReport {
  std::string SpikesName;
  StampSeries Spikes;
  size_t SpikesTrailing = 0;
  uint64_t SpikesPlaced = 0;  ///< spikes with a tracked place
  int WaveformLength = 0;     ///< as the header has it; 0 when it does not say
  bool HasVideo = false;
  Tracking Video;
  AngleCheck Angles;
  size_t VideoTrailing = 0;
  bool HasEvents = false;
  StampSeries Events;
  size_t EventsTrailing = 0;
  std::vector<std::string> Left;  ///< names of files that stood there already as they would have been made

  /// The report for the user, a line each.
  std::vector<std::string> Lines() const;
};

/// Makes the files that a session opens: in the folder `Out`, VideoSampling and Pos.p; in its subfolder named after the
/// spike file ("TT1"), copies of the spike and events files, TT1.waveforms and, put in place last, the parameter file
/// TT1.Ntt.parms. Spikes out of time order are sorted, in both files alike. Without a video file there is no Pos.p, and
/// VideoSampling, which no session does without, is made only where there is none.
///
/// Every file is put in place whole or not at all; what stands there already is judged as PutInPlace() says. Throws
/// CommandError when a file cannot be read or written, or is of another kind than its place in the request asks for,
/// and Interrupted when the user stops it.
ImportReport ImportRecording(const ImportRequest& request, ProgressBar& progress);

}  // namespace pallomir
