#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace pallomir {

inline constexpr double kNotKnown = std::numeric_limits<double>::quiet_NaN();

/// Stamps of a recording are within this many microseconds of 0.
inline constexpr int64_t kFarthestStamp = 1'000'000'000'000'000'000;
inline bool IsStamp(double microseconds) {
  return std::abs(microseconds) <= static_cast<double>(kFarthestStamp);
}

/// From First to Last, inclusive, in microseconds.
struct TimeRange {
  int64_t First = 0;
  int64_t Last = 0;
  bool Holds(int64_t time) const { return time >= First && time <= Last; }
  /// False if either end is outside the stamps of a recording: its length means nothing.
  bool MakesSense() const { return First > -kFarthestStamp && Last < kFarthestStamp; }
};

}  // namespace pallomir
