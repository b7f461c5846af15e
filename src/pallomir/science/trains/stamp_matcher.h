#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace pallomir {

/// `stamp` as read back from one of our text files, which keep 15 significant digits; ties round to even.
int64_t StampAsWritten(int64_t stamp);

/// Finds the spikes of a cluster in a spike file by their stamps; neither needs to be in order.
class StampMatcher {
 public:
  /// `stamps` of the cluster's spikes, in microseconds; a stamp may occur more than once.
  explicit StampMatcher(std::span<const int64_t> stamps);

  /// Whether a record of the spike file belongs to the cluster; call it for each record in file order. If more records
  /// have a stamp than the cluster has spikes with it, the first ones are taken and the others are counted as
  /// ambiguous.
  bool Take(int64_t stamp);

  /// Spikes of the cluster for which no record was found.
  int64_t Missing() const { return total_ - taken_; }
  /// Records that have the same stamp as taken ones and may be the cluster's spikes instead.
  int64_t Ambiguous() const { return ambiguous_; }

 private:
  std::vector<int64_t> stamps_;    // unique, in order
  std::vector<uint32_t> waiting_;  // spikes with that stamp for which no record has come
  size_t index_ = 0;               // index of the last stamp looked up, or past it
  int64_t total_;
  int64_t taken_ = 0;
  int64_t ambiguous_ = 0;
};

}  // namespace pallomir
