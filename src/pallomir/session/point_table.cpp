#include "pallomir/session/point_table.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "pallomir/files/error.h"

namespace pallomir {

namespace {

/// Distance in floats between the starts of columns: an odd number of whole cache lines, so that the same row of many
/// columns does not map to the same few cache sets.
size_t ColumnStride(size_t values) {
  return 16 * (((values + 15) / 16) | 1);
}

}  // namespace

PointTable::PointTable(size_t rows) : rows_(rows), stride_(ColumnStride(rows + 1)) {
  static std::atomic<uint64_t> tables = 0;
  version_.Table = ++tables;
  // The unused slot has a column of zeros too, which takes no memory until it is written.
  valueMemory_ = AllocateLargeMemory(stride_ * kParameterSlots * sizeof(float));
  columns_ = static_cast<float*>(valueMemory_.get());
  stampMemory_ = AllocateLargeMemory((rows + 1) * sizeof(uint64_t));
  stamps_ = static_cast<uint64_t*>(stampMemory_.get());
}

void PointTable::ReleaseValues() {
  valueMemory_.reset();
  columns_ = nullptr;
}

void PointTable::TakeValues(PointTable&& from) {
  valueMemory_ = std::move(from.valueMemory_);
  columns_ = from.columns_;
}

void PointTable::AddSlot() {
  if (lists_.Slots.size() == kClusterSlots)
    throw CommandError(ErrorKind::Refused, "A point cannot be in more than 31 clusters.");
  ++version_.Lists;
  lists_.Slots.emplace_back(rows_ + 1);
}

int PointTable::Memberships(size_t i) const {
  int count = 0;
  while (count < SlotsInUse() && lists_.Slots[count][i] != 0) ++count;
  return count;
}

PointRecord PointTable::Record(size_t i) const {
  PointRecord record;
  for (int p = 0; p < kParameterSlots; ++p) record.Parameters[p] = Column(p)[i];
  for (int slot = 0; slot < SlotsInUse(); ++slot) record.Clusters[slot] = lists_.Slots[slot][i];
  record.Stamp = stamps_[i];
  return record;
}

void PointTable::KeepFirst(size_t rows) {
  if (rows >= rows_) return;
  PointTable kept(rows);
  for (int p = 0; p < kParameterSlots; ++p) std::copy_n(Column(p).begin(), rows, kept.Column(p).begin());
  std::copy_n(stamps_, rows, kept.stamps_);
  for (const auto& slot : lists_.Slots) {
    kept.AddSlot();
    std::copy_n(slot.begin(), rows, kept.lists_.Slots.back().begin());
  }
  kept.lists_.Entered = lists_.Entered;
  *this = std::move(kept);
}

}  // namespace pallomir
