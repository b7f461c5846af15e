#pragma once

#include <cstdint>
#include <string>

namespace pallomir {

/// A count with its thousands set apart.
std::string CountText(uint64_t count);

/// `value` rounded to `decimals` places, without exponent.
std::string RoundedText(double value, int decimals);

/// "20 min 0.500 s", "12.300 s".
std::string DurationText(uint64_t microseconds);

}  // namespace pallomir
