#pragma once

#include <filesystem>
#include <string_view>

#include "files/raw_file.h"
#include "tools/import/tracking.h"
#include "tools/progress.h"
#include "tools/raw/record_order.h"

namespace pallomir {

struct SpikeOutputs {
  std::filesystem::path Parameters;
  std::filesystem::path Waveforms;
};

/// Writes the parameter file and the waveform file of all spikes in order of time; row r of the one and record r of the
/// other are the same spike. `date` goes into the header. Returns how many spikes have a tracked place. Throws
/// CommandError when reading or writing fails.
uint64_t WriteSpikes(RawFile& spikes, const RecordOrder& order, const Tracking& tracking, const SpikeOutputs& outputs,
                     std::string_view date, Progress& progress);

}  // namespace pallomir
