#pragma once

#include <vector>

#include "pallomir/files/raw_file.h"
#include "tools/progress_bar.h"
#include "tools/raw/stamp_series.h"

namespace pallomir {

/// The records of a raw file in time order.
class RecordOrder {
 public:
  /// Reads the file's stamps. Uses memory, 16 bytes per record, only if they are out of order.
  RecordOrder(RawFile& file, ProgressBar& progress);

  const StampSeries& Stamps() const { return stamps_; }

  /// As RawFile::Read, but by index in time order; records with equal stamps keep their order in the file.
  void Read(RawFile& file, uint64_t first, size_t count, unsigned char* into) const;

 private:
  struct Entry {
    uint64_t Stamp;
    uint64_t Source;
  };
  StampSeries stamps_;
  std::vector<Entry> entries_;  // empty if the file is in order
};

}  // namespace pallomir
