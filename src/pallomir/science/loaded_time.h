#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "pallomir/science/times.h"

namespace pallomir {

/// The loaded parts of a recording. Laid end to end they make up the loaded time, which runs from 0 to Length(), in
/// microseconds. Intervals and pairs of spikes never cross from one part into another.
class LoadedTime {
 public:
  /// `parts` in time order, without overlap; both ends belong to a part.
  explicit LoadedTime(std::vector<TimeRange> parts);

  int64_t Length() const { return starts_.back(); }
  const std::vector<TimeRange>& Parts() const { return parts_; }

  /// The loaded time of a stamp; empty if it is in no part.
  std::optional<int64_t> At(int64_t stamp) const;
  /// The stamp at a loaded time from 0 to Length(); where two parts meet, the start of the later one.
  int64_t StampAt(int64_t loaded) const;
  /// Which of `count` equal parts of the loaded time a stamp is in; its end is in the last one. The stamp must be in a
  /// part.
  size_t ShareOf(int64_t stamp, size_t count) const;

  /// Calls use(spikes) with the spikes of each part; `spikes` in time order.
  void ForEachPart(std::span<const int64_t> spikes, const std::function<void(std::span<const int64_t>)>& use) const;

 private:
  std::vector<TimeRange> parts_;
  /// The loaded time at which each part starts, and the length of all.
  std::vector<int64_t> starts_;
};

}  // namespace pallomir
