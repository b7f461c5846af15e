#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "pallomir/files/progress.h"
#include "pallomir/recorded/spike_file.h"
#include "pallomir/results/measure_cluster.h"
#include "pallomir/science/loaded_time.h"

namespace pallomir {

/// The records of a spike file within the loaded time, for several passes.
class RecordedWaveforms {
 public:
  /// Whether samples are kept in memory if they are not too many, or read again for each pass.
  enum class Samples { Kept, Reread };

  /// Reads the stamps, and the samples that are kept. Throws as SpikeFile does.
  RecordedWaveforms(const std::filesystem::path& path, LoadedTime time, const Progress& progress,
                    Samples samples = Samples::Kept);

  const SpikeFile& File() const { return file_; }
  /// Of the records within the loaded time, in file order.
  const std::vector<int64_t>& Stamps() const { return stamps_; }
  /// Their places in the file.
  const std::vector<uint64_t>& Numbers() const { return numbers_; }

  /// Calls use(index, samples) for every record within the loaded time, in file order.
  void ForEach(const Progress& progress, const std::function<void(size_t, const WireSamples&)>& use);

 private:
  SpikeFile file_;
  LoadedTime time_;
  std::vector<int64_t> stamps_;
  std::vector<uint64_t> numbers_;
  std::vector<WireSamples> kept_;  ///< all of them, or none
};

/// The features of all records, in two passes over them; the second also calls use(index, samples) for each.
SpikeFeatures FeaturesOf(RecordedWaveforms& recorded, const Progress& progress,
                         const std::function<void(size_t, const WireSamples&)>& use = {});

}  // namespace pallomir
