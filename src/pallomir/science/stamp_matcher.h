#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace pallomir {

/// `stamp` as it comes back from a text file of ours, which keeps 15 significant digits: halves to the even digit.
int64_t StampAsWritten(int64_t stamp);

/// Picks the spikes of a cluster out of a spike file by their stamps, in whatever order either of them is.
class StampMatcher {
 public:
  /// `stamps` of the cluster's spikes, microseconds; a stamp may stand there several times.
  explicit StampMatcher(std::span<const int64_t> stamps);

  /// Whether a record of the spike file is one of the cluster, asked of each in the order of the file. Where more
  /// records have a stamp than the cluster has spikes with it, the first are taken and the others are counted.
  bool Take(int64_t stamp);

  /// Spikes of the cluster for which no record has been asked.
  int64_t Missing() const { return total_ - taken_; }
  /// Records that may have been meant as well as the ones that were taken.
  int64_t Ambiguous() const { return ambiguous_; }

 private:
  std::vector<int64_t> stamps_;    // each once, in order
  std::vector<uint32_t> waiting_;  // spikes of that stamp for which no record has come
  size_t place_ = 0;               // of the last stamp looked for, or behind it
  int64_t total_;
  int64_t taken_ = 0;
  int64_t ambiguous_ = 0;
};

}  // namespace pallomir
