#pragma once

#include <cstdint>
#include <string>

#include "tools/import/import_recording.h"
#include "tools/progress.h"

namespace pallomir {

struct SampleRequest {
  std::string Folder;  ///< made where it is missing
  uint64_t Spikes = 80'000;
  uint64_t Seed = 1;
};

/// Simulates a recording of one tetrode in a box of 1 m, writes it as the acquisition system would (raw/TT1.Ntt,
/// raw/VT1.Nvt and raw/Events.Nev in `Folder`) and imports that into `Folder`. It lasts 20 minutes, longer from 300 000
/// spikes on. Six cells fire, the rest is multi-unit noise. The same seed gives the same bytes everywhere.
/// Throws CommandError when a file cannot be written.
ImportReport MakeSample(const SampleRequest& request, Progress& progress);

}  // namespace pallomir
