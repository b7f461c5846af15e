#include "pallomir/science/trains/stamp_matcher.h"

#include <algorithm>

namespace pallomir {

int64_t StampAsWritten(int64_t stamp) {
  constexpr int64_t limit = 1'000'000'000'000'000;  // 16 digits
  if (stamp < limit) return stamp;
  int64_t unit = 10;
  while (stamp / unit >= limit) unit *= 10;
  const int64_t digits = stamp / unit, rest = stamp % unit;
  const bool up = 2 * rest > unit || (2 * rest == unit && digits % 2 != 0);
  return (digits + (up ? 1 : 0)) * unit;
}

StampMatcher::StampMatcher(std::span<const int64_t> stamps) : total_(static_cast<int64_t>(stamps.size())) {
  std::vector<int64_t> sorted(stamps.size());
  std::transform(stamps.begin(), stamps.end(), sorted.begin(), StampAsWritten);
  if (!std::is_sorted(sorted.begin(), sorted.end())) std::sort(sorted.begin(), sorted.end());
  for (const int64_t stamp : sorted) {
    if (stamps_.empty() || stamps_.back() != stamp) {
      stamps_.push_back(stamp);
      waiting_.push_back(0);
    }
    ++waiting_.back();
  }
}

bool StampMatcher::Take(int64_t stamp) {
  stamp = StampAsWritten(stamp);
  // Records are mostly in order, so the index is that of the last stamp or the next one.
  if (index_ > 0 && stamps_[index_ - 1] >= stamp)
    index_ = static_cast<size_t>(std::lower_bound(stamps_.begin(), stamps_.end(), stamp) - stamps_.begin());
  while (index_ < stamps_.size() && stamps_[index_] < stamp) ++index_;
  if (index_ == stamps_.size() || stamps_[index_] != stamp) return false;
  if (waiting_[index_] == 0) {
    ++ambiguous_;
    return false;
  }
  --waiting_[index_];
  ++taken_;
  return true;
}

}  // namespace pallomir
