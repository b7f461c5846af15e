#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pallomir {

/// A count with groups of three digits.
std::string CountText(uint64_t count);

/// `value` rounded to `decimals` decimal places, without an exponent.
std::string RoundedText(double value, int decimals);

/// A text from any source, for a terminal: control characters, and bytes that are not UTF-8, become "\\x1B".
std::string Escaped(std::string_view text);

/// "20 min 0.500 s", "12.300 s".
std::string DurationText(uint64_t microseconds);

}  // namespace pallomir
