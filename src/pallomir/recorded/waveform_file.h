#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/files/file_reader.h"

namespace pallomir {

/// A waveform file has no header. The record of spike n begins at byte 2048 n: 32 blocks of 32 samples, i16
/// little-endian, in raw counts; block c belongs to channel c and is zero if the channel was not recorded.
inline constexpr int kWaveformBlocks = 32;
inline constexpr int kBlockSamples = 32;
inline constexpr size_t kWaveformBlockBytes = size_t{2} * kBlockSamples;
inline constexpr size_t kWaveformRecordBytes = kWaveformBlocks * kWaveformBlockBytes;

/// Sample j of block b is value 32 b + j.
using WaveformRecord = std::array<int16_t, size_t{kWaveformBlocks} * kBlockSamples>;

/// The path of the waveform file of a parameter file: "waveforms" replaces the last 9 characters ("Ntt.parms"). Empty
/// if the extension is not "parms" or the name is too short.
std::filesystem::path WaveformFilePath(const std::filesystem::path& parameterFile);

/// A waveform file with random access to its records.
class WaveformFile {
 public:
  /// Throws CommandError if the name cannot be formed, or the file is missing or cannot be read.
  explicit WaveformFile(const std::filesystem::path& parameterFile);

  const std::string& Name() const { return file_.Name(); }
  int64_t RecordCount() const { return static_cast<int64_t>(file_.Length() / kWaveformRecordBytes); }

  /// Reads record `n` into `into`. Returns false and leaves `into` unchanged if the file does not have the complete
  /// record. Throws CommandError on a read error.
  bool Read(int64_t n, WaveformRecord& into);

 private:
  FileReader file_;
};

}  // namespace pallomir
