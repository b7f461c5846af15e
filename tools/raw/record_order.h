#pragma once

#include <vector>

#include "pallomir/files/raw_file.h"
#include "tools/progress_bar.h"
#include "tools/raw/stamp_series.h"

namespace pallomir {

/// The records of a raw file in order of time.
class RecordOrder {
 public:
  /// Goes through the file's stamps. Memory is taken, 16 bytes a record, only when they are out of order.
  RecordOrder(RawFile& file, ProgressBar& progress);

  const StampSeries& Stamps() const { return stamps_; }

  /// As RawFile::Read, but by place in the order of time; records with equal stamps stay as they are in the file.
  void Read(RawFile& file, uint64_t first, size_t count, unsigned char* into) const;

 private:
  struct Entry {
    uint64_t Stamp;
    uint64_t Source;
  };
  StampSeries stamps_;
  std::vector<Entry> entries_;  // empty when the file is in order
};

}  // namespace pallomir
