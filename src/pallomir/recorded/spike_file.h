#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/raw_file.h"
#include "pallomir/science/times.h"
#include "pallomir/science/waveforms/wire_samples.h"

namespace pallomir {

/// A record of a spike file; `Bytes` points into the read buffer.
struct SpikeRecord {
  uint64_t Number;  ///< from 0
  int64_t Stamp;    ///< microseconds
  const unsigned char* Bytes;

  void ReadSamples(WireSamples& samples) const;
};

/// The acquisition system's tetrode spike file (.Ntt): an optional text header of 16384 bytes, then records of 304
/// bytes. An incomplete record at the end is ignored.
class SpikeFile {
 public:
  /// Throws CommandError if the file cannot be opened or its header has another record size.
  explicit SpikeFile(const std::filesystem::path& path);

  const std::string& Name() const { return file_.Name(); }
  uint64_t RecordCount() const { return file_.RecordCount(); }
  size_t TrailingBytes() const { return file_.TrailingBytes(); }

  /// Microvolts per count on each wire: the header's "-ADBitVolts", one number or one per wire. All are 1, and
  /// ScaleKnown() is false, if the header does not state it.
  const std::array<double, kWires>& MicrovoltsPerCount() const { return scale_; }
  bool ScaleKnown() const { return scaleKnown_; }

  /// Microseconds after a spike during which the system does not detect another: the header's "-SpikeRetriggerTime"; 0
  /// if not stated.
  double DeadTime() const { return deadTime_; }

  /// Samples a second on each wire: the header's "-SamplingFrequency"; 0 if not stated.
  double SamplingRate() const { return samplingRate_; }

  /// Calls use(record) for every record in file order, reads in blocks and calls reached(share) after each. Records
  /// with an implausible stamp are skipped and counted. Throws CommandError if these are the majority or the file
  /// cannot be read.
  template <class Use>
  void ForEachSpike(const std::function<void(double)>& reached, Use use);

  /// Calls use(i, samples) for each of the records numbers[i], which are in rising order. Throws CommandError if one
  /// cannot be read.
  void ForSpikes(std::span<const uint64_t> numbers, const std::function<void(size_t, const WireSamples&)>& use);

  /// Records skipped by the last ForEachSpike.
  uint64_t Unreadable() const { return unreadable_; }

 private:
  static constexpr size_t kBlockRecords = 2048;
  [[noreturn]] void RefuseForeign() const;

  RawFile file_;
  std::array<double, kWires> scale_{1, 1, 1, 1};
  bool scaleKnown_ = false;
  double deadTime_ = 0;
  double samplingRate_ = 0;
  uint64_t unreadable_ = 0;
};

template <class Use>
void SpikeFile::ForEachSpike(const std::function<void(double)>& reached, Use use) {
  const uint64_t end = RecordCount();
  const size_t size = file_.Layout().RecordBytes;
  std::vector<unsigned char> block(size * static_cast<size_t>(std::min<uint64_t>(kBlockRecords, end)));
  unreadable_ = 0;
  for (uint64_t begin = 0; begin < end; begin += kBlockRecords) {
    const auto count = static_cast<size_t>(std::min<uint64_t>(kBlockRecords, end - begin));
    file_.Read(begin, count, block.data());
    for (size_t r = 0; r < count; ++r) {
      const unsigned char* bytes = block.data() + r * size;
      const uint64_t stamp = file_.StampOf(bytes);
      if (stamp <= static_cast<uint64_t>(kFarthestStamp))
        use(SpikeRecord{begin + r, static_cast<int64_t>(stamp), bytes});
      else
        ++unreadable_;
    }
    reached(static_cast<double>(begin + count) / static_cast<double>(end));
  }
  if (2 * unreadable_ > end) RefuseForeign();
}

}  // namespace pallomir
