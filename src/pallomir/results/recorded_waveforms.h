#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "pallomir/files/progress.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/science/loaded_time.h"

namespace pallomir {

/// The records of a spike file within the loaded time, for several passes: kept in memory if they are not too many.
class RecordedWaveforms {
 public:
  /// Reads the stamps, and as many samples as are kept. Throws as SpikeFile does.
  RecordedWaveforms(const std::filesystem::path& path, LoadedTime time, const Progress& progress);

  const SpikeFile& File() const { return file_; }
  /// Of the records within the loaded time, in file order.
  const std::vector<int64_t>& Stamps() const { return stamps_; }

  /// Calls use(index, samples) for every record within the loaded time, in file order.
  void ForEach(const Progress& progress, const std::function<void(size_t, const WireSamples&)>& use);

 private:
  SpikeFile file_;
  LoadedTime time_;
  std::vector<int64_t> stamps_;
  std::vector<WireSamples> kept_;  ///< all of them, or none
};

}  // namespace pallomir
