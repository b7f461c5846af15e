#include "pallomir/science/trains/circular_shifts.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pallomir {

namespace {

constexpr int64_t kSecond = 1'000'000;
constexpr int64_t kSmallestShift = 20 * kSecond, kShortestTime = 60 * kSecond;

/// SplitMix64 (Steele, Lea and Flood 2014).
class SplitMix {
 public:
  explicit SplitMix(uint64_t seed) : state_(seed) {}
  uint64_t Draw() {
    uint64_t z = state_ += 0x9E3779B97F4A7C15;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
  }

 private:
  uint64_t state_;
};

/// Linear between the order statistics of values in ascending order.
double Percentile(const std::vector<double>& sorted, double share) {
  const double place = share * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<size_t>(place);
  const double beyond = place - static_cast<double>(below);
  if (beyond == 0) return sorted[below];
  return sorted[below] + beyond * (sorted[below + 1] - sorted[below]);
}

}  // namespace

ChanceLevel ChanceLevelOf(double value, std::span<const double> shifted) {
  std::vector<double> finite;
  for (const double other : shifted)
    if (std::isfinite(other)) finite.push_back(other);
  ChanceLevel level;
  level.Finite = static_cast<int>(finite.size());
  const char* why = std::isnan(value)                    ? "the measure itself is not known"
                    : shifted.empty()                    ? "less than 60 s are loaded"
                    : 2 * finite.size() < shifted.size() ? "fewer than half of the shifts have a value"
                                                         : nullptr;
  if (why) {
    level.P = level.LowerP = level.Mean = level.Z = level.High95 = level.High99 = Measured::None(why);
    return level;
  }
  std::sort(finite.begin(), finite.end());
  const double slack = 1e-12 * std::max(1.0, std::abs(value)), count = static_cast<double>(finite.size());
  const auto below = std::lower_bound(finite.begin(), finite.end(), value - slack) - finite.begin();
  const auto upTo = std::upper_bound(finite.begin(), finite.end(), value + slack) - finite.begin();
  level.P = (count - static_cast<double>(below) + 1) / (count + 1);
  level.LowerP = (static_cast<double>(upTo) + 1) / (count + 1);
  const double mean = std::accumulate(finite.begin(), finite.end(), 0.0) / count;
  double squares = 0;
  for (const double other : finite) squares += (other - mean) * (other - mean);
  const double deviation = std::sqrt(squares / (count - 1));
  level.Mean = mean;
  level.Z = deviation > 0 ? Measured((value - mean) / deviation) : Measured::None("the shifts all have the same value");
  level.High95 = Percentile(finite, 0.95);
  level.High99 = Percentile(finite, 0.99);
  return level;
}

std::vector<int64_t> CircularShifts(const LoadedTime& time, const ChanceSettings& settings) {
  if (time.Length() < kShortestTime) return {};
  SplitMix random(settings.Seed);
  const auto spread = static_cast<double>(time.Length() - 2 * kSmallestShift);
  std::vector<int64_t> shifts(static_cast<size_t>(settings.Shifts));
  for (int64_t& shift : shifts) {
    const double share = static_cast<double>(random.Draw() >> 11) * 0x1p-53;
    shift = static_cast<int64_t>(std::floor(static_cast<double>(kSmallestShift) + share * spread));
  }
  return shifts;
}

ShiftedTrain::ShiftedTrain(std::span<const int64_t> spikes, std::span<const int64_t> sampleTimes,
                           std::span<const double> hold, const LoadedTime& time)
    : length_(time.Length()) {
  for (const int64_t spike : spikes) spikes_.push_back(*time.At(spike));
  for (size_t i = 0; i < sampleTimes.size(); ++i) {
    const auto from = time.At(sampleTimes[i]);
    if (!from) continue;
    const int64_t end = *from + static_cast<int64_t>(std::ceil(hold[i]));
    if (!samples_.empty()) samples_.back().To = std::min(samples_.back().To, *from);
    samples_.push_back({*from, end, static_cast<int64_t>(i)});
  }
}

void ShiftedTrain::SamplesAt(int64_t shift, std::vector<int64_t>& samples) const {
  samples.assign(spikes_.size(), -1);
  // Those past the end come first; from there on both spikes and samples advance.
  const auto wrapped = std::lower_bound(spikes_.begin(), spikes_.end(), length_ - shift) - spikes_.begin();
  size_t next = 0;
  const auto place = [&](size_t spike, int64_t at) {
    while (next < samples_.size() && samples_[next].To <= at) ++next;
    if (next < samples_.size() && samples_[next].From <= at) samples[spike] = samples_[next].Index;
  };
  for (auto s = static_cast<size_t>(wrapped); s < spikes_.size(); ++s) place(s, spikes_[s] + shift - length_);
  for (size_t s = 0; s < static_cast<size_t>(wrapped); ++s) place(s, spikes_[s] + shift);
}

}  // namespace pallomir
