#pragma once

#include <cstdint>
#include <string>

#include "tools/import/import_recording.h"
#include "tools/progress_bar.h"

namespace pallomir {

struct SampleRequest {
  std::filesystem::path Folder;  ///< created if missing
  uint64_t Spikes = 80'000;
  uint64_t Seed = 1;
  uint64_t Minutes = 20;  ///< duration; longer for more than 15 000 spikes per minute
  bool Replace = false;   ///< continue even if the folder is not empty
};

/// Simulates a recording of one tetrode in a box of 1 m, writes it as the acquisition system would (raw/TT1.Ntt,
/// raw/VT1.Nvt and raw/Events.Nev in `Folder`) and imports it into `Folder`. Eight cells fire, the rest is multi-unit
/// noise. The same seed gives the same bytes on every platform. Throws CommandError if the folder is not empty and
/// Replace is false, or if a file cannot be written, and Interrupted when the user stops it.
ImportReport MakeSample(const SampleRequest& request, ProgressBar& progress);

}  // namespace pallomir
