#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "pallomir/files/platform.h"
#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {

/// Size of tables by cluster number: 0 (no cluster) and the user's clusters 1..30.
inline constexpr int kClusterSlots = 31;

/// One loaded row as a record.
struct PointRecord {
  std::array<float, kParameterSlots> Parameters{};
  std::array<int16_t, kClusterSlots> Clusters{};
  uint64_t Stamp = 0;
};

/// The membership lists of all points: their slots, and which clusters they may contain.
struct MembershipLists {
  std::vector<std::vector<int16_t>> Slots;
  std::array<bool, kClusterSlots> Entered{};
};

/// The loaded rows as columns: rows 0..M-1, and a row M of zeros.
///
/// A point's membership list fills the slots from 0, in the order in which it joined clusters, and ends with 0. A
/// slot's column is only allocated once some point is in more clusters than there are columns.
class PointTable {
 public:
  /// A table of `rows` rows of zeros; memory is only committed as it is written. Throws std::bad_alloc if there is not
  /// enough memory.
  explicit PointTable(size_t rows = 0);

  size_t Rows() const { return rows_; }

  /// Values of one parameter (0..134, the last all zero), M + 1 of them; memory is padded to a multiple of 16 values.
  std::span<float> Column(int parameter) { return {columns_ + parameter * stride_, rows_ + 1}; }
  std::span<const float> Column(int parameter) const { return {columns_ + parameter * stride_, rows_ + 1}; }

  /// Stamps in microseconds, M + 1 of them.
  std::span<uint64_t> Stamps() { return {stamps_, rows_ + 1}; }
  std::span<const uint64_t> Stamps() const { return {stamps_, rows_ + 1}; }

  int SlotsInUse() const { return static_cast<int>(lists_.Slots.size()); }
  std::span<int16_t> Slot(int slot) {
    ++version_.Lists;
    return lists_.Slots[slot];
  }
  std::span<const int16_t> Slot(int slot) const { return lists_.Slots[slot]; }

  /// Adds a column for the next slot, all zero. Throws CommandError for a 32nd.
  void AddSlot();

  /// Clears every membership list.
  void ClearMemberships() { SetLists({}); }

  const MembershipLists& Lists() const { return lists_; }
  /// Restores membership lists copied from this table earlier.
  void SetLists(MembershipLists lists) {
    ++version_.Lists;
    lists_ = std::move(lists);
  }

  /// Tells what is derived from a table whether it is out of date: no two tables share `Table`, and `Lists` grows
  /// whenever the membership lists may have changed.
  struct Version {
    uint64_t Table = 0, Lists = 0;
    bool operator==(const Version&) const = default;
  };
  Version CurrentVersion() const { return version_; }

  /// Whether any list may contain cluster c. Set by the code that enters points; saves searching lists that cannot
  /// contain it.
  bool Entered(int c) const { return lists_.Entered[c]; }
  void SetEntered(int c, bool entered) { lists_.Entered[c] = entered; }

  /// Number of clusters that point i is in.
  int Memberships(size_t i) const;

  PointRecord Record(size_t i) const;

  /// Discards all rows but the first `rows`.
  void KeepFirst(size_t rows);

  /// Releases the memory of the values, nearly all of the table's, and keeps stamps and lists. Columns must not be
  /// accessed until TakeValues().
  void ReleaseValues();

  /// Takes over the values of a table with the same number of rows.
  void TakeValues(PointTable&& from);

 private:
  size_t rows_ = 0;
  size_t stride_ = 0;
  LargeMemory valueMemory_;
  LargeMemory stampMemory_;
  float* columns_ = nullptr;
  uint64_t* stamps_ = nullptr;
  MembershipLists lists_;
  Version version_;
};

}  // namespace pallomir
