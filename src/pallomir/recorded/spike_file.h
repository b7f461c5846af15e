#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/raw_file.h"
#include "pallomir/science/times.h"
#include "pallomir/science/wire_samples.h"

namespace pallomir {

/// A record of a spike file, while it is in memory.
struct SpikeRecord {
  uint64_t Number;  ///< from 0
  int64_t Stamp;    ///< microseconds
  const unsigned char* Bytes;

  void ReadSamples(WireSamples& samples) const;
};

/// The acquisition system's file of tetrode spikes (.Ntt): a text header of 16384 bytes, which may be absent, then
/// records of 304 bytes. A piece of a record at its end is left out.
class SpikeFile {
 public:
  /// Throws CommandError when the file cannot be opened or its header names another size of records.
  explicit SpikeFile(std::string_view path);

  const std::string& Name() const { return file_.Name(); }
  uint64_t RecordCount() const { return file_.RecordCount(); }
  size_t TrailingBytes() const { return file_.TrailingBytes(); }

  /// What a count is worth on each wire: the header's "-ADBitVolts", one number or one a wire. 1, and ScaleKnown() is
  /// false, where the header does not say.
  const std::array<double, kWires>& MicrovoltsPerCount() const { return scale_; }
  bool ScaleKnown() const { return scaleKnown_; }

  /// How long after a spike the system did not look for another, microseconds: the header's "-SpikeRetriggerTime"; 0
  /// where it does not say.
  double DeadTime() const { return deadTime_; }

  /// Calls use(record) for every record, in the order of the file, reading block by block and telling reached(share)
  /// after each. Records whose stamp is beyond reason are passed over and counted. Throws CommandError when these are
  /// most of them, or the file cannot be read.
  template <class Use>
  void ForEachSpike(const std::function<void(double)>& reached, Use use);

  /// Records that the last ForEachSpike passed over.
  uint64_t Unreadable() const { return unreadable_; }

 private:
  static constexpr size_t kBlockRecords = 2048;
  [[noreturn]] void RefuseForeign() const;

  RawFile file_;
  std::array<double, kWires> scale_{1, 1, 1, 1};
  bool scaleKnown_ = false;
  double deadTime_ = 0;
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
