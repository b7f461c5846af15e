#pragma once

#include <filesystem>
#include <string_view>

#include "tools/import/tracking.h"
#include "tools/progress.h"
#include "tools/raw/raw_file.h"
#include "tools/raw/record_order.h"

namespace pallomir {

/// A record of a waveform file: 32 blocks of 32 i16 samples, block c for channel c, zero where it was not recorded.
inline constexpr size_t kWaveformBlocks = 32;
inline constexpr size_t kWaveformBlockBytes = 2 * kWaveformSamples;
inline constexpr size_t kWaveformRecordBytes = kWaveformBlocks * kWaveformBlockBytes;

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
