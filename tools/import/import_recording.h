#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/import/tracking.h"
#include "tools/progress.h"

namespace pallomir {

/// What to import, and where to. Paths in the system's own notation; an empty one means that there is no such file.
struct ImportRequest {
  std::string Spikes{};    ///< .Ntt or .Nse
  std::string Video{};     ///< .Nvt
  std::string Events{};    ///< .Nev
  std::string Out{};       ///< the recording's folder; made where it is missing
  double PixelsPerCm = 0;  ///< written into Pos.p; 0 when it is not known
  std::string Date{};      ///< of the files' headers, as TextHeader takes it
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
  size_t VideoTrailing = 0;
  bool HasEvents = false;
  StampSeries Events;
  size_t EventsTrailing = 0;

  /// The report for the user, a line each.
  std::vector<std::string> Lines() const;
};

/// Makes the files that a session opens: in the folder `Out`, VideoSampling and Pos.p; in its subfolder named after the
/// spike file ("TT1"), the parameter file TT1.Ntt.parms, TT1.waveforms and copies of the spike and events files. Spikes
/// out of time order are sorted, in both files alike.
///
/// Every file is put in place whole or not at all. Throws CommandError when a file cannot be read or written, or is of
/// another kind than its place in the request asks for.
ImportReport ImportRecording(const ImportRequest& request, Progress& progress);

}  // namespace pallomir
