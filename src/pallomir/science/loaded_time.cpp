#include "pallomir/science/loaded_time.h"

#include <algorithm>
#include <cmath>

namespace pallomir {

LoadedTime::LoadedTime(std::vector<TimeRange> parts) : parts_(std::move(parts)), starts_{0} {
  for (const TimeRange& part : parts_) starts_.push_back(starts_.back() + (part.Last - part.First));
}

std::optional<int64_t> LoadedTime::At(int64_t stamp) const {
  const auto after = std::upper_bound(parts_.begin(), parts_.end(), stamp,
                                      [](int64_t time, const TimeRange& part) { return time < part.First; });
  if (after == parts_.begin() || !(after - 1)->Holds(stamp)) return {};
  const auto part = static_cast<size_t>(after - parts_.begin()) - 1;
  return starts_[part] + (stamp - parts_[part].First);
}

int64_t LoadedTime::StampAt(int64_t loaded) const {
  const auto after = std::upper_bound(starts_.begin(), starts_.end() - 1, loaded);
  const auto part = static_cast<size_t>(after - starts_.begin()) - 1;
  return parts_[part].First + (loaded - starts_[part]);
}

size_t LoadedTime::ShareOf(int64_t stamp, size_t count) const {
  if (Length() == 0) return count - 1;
  const double share = static_cast<double>(count) * static_cast<double>(*At(stamp)) / static_cast<double>(Length());
  return std::min(static_cast<size_t>(std::floor(share)), count - 1);
}

void LoadedTime::ForEachPart(std::span<const int64_t> spikes,
                             const std::function<void(std::span<const int64_t>)>& use) const {
  for (const TimeRange& part : parts_) {
    const auto begin = std::lower_bound(spikes.begin(), spikes.end(), part.First);
    const auto end = std::upper_bound(begin, spikes.end(), part.Last);
    if (begin != end) use({begin, end});
  }
}

}  // namespace pallomir
