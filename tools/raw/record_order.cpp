#include "tools/raw/record_order.h"

#include <tuple>

namespace pallomir {

RecordOrder::RecordOrder(RawFile& file, ProgressBar& progress) {
  file.ForEachRecord(progress, [&](const unsigned char* record, uint64_t) { stamps_.Add(file.StampOf(record)); });
  if (stamps_.Disordered == 0) return;
  entries_.reserve(static_cast<size_t>(file.RecordCount()));
  file.ForEachRecord(progress, [&](const unsigned char* record, uint64_t number) {
    entries_.push_back({file.StampOf(record), number});
  });
  std::sort(entries_.begin(), entries_.end(),
            [](const Entry& a, const Entry& b) { return std::tie(a.Stamp, a.Source) < std::tie(b.Stamp, b.Source); });
}

void RecordOrder::Read(RawFile& file, uint64_t first, size_t count, unsigned char* into) const {
  if (entries_.empty()) return file.Read(first, count, into);
  // Neighbours in time are mostly neighbours in the file too: read them together.
  for (size_t r = 0; r < count;) {
    const uint64_t source = entries_[first + r].Source;
    size_t run = 1;
    while (r + run < count && entries_[first + r + run].Source == source + run) ++run;
    file.Read(source, run, into + r * file.Layout().RecordBytes);
    r += run;
  }
}

}  // namespace pallomir
