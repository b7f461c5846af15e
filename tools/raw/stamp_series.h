#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace pallomir {

/// Statistics of a series of stamps (microseconds), added one by one in file order.
struct StampSeries {
  uint64_t Count = 0;
  uint64_t Lowest = std::numeric_limits<uint64_t>::max();
  uint64_t Highest = 0;
  uint64_t Disordered = 0;  ///< stamps earlier than their predecessor
  uint64_t FirstDisordered = 0;

  void Add(uint64_t stamp) {
    if (Count > 0 && stamp < previous_ && Disordered++ == 0) FirstDisordered = Count;
    Lowest = std::min(Lowest, stamp);
    Highest = std::max(Highest, stamp);
    previous_ = stamp;
    ++Count;
  }

 private:
  uint64_t previous_ = 0;
};

}  // namespace pallomir
