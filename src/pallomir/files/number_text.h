#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pallomir {

/// `text` without leading and trailing blanks, tabs and line ends.
std::string_view Trimmed(std::string_view text);

/// The number in a text; empty if it is not a number. Blanks around it, a sign, "." and an exponent are accepted, in
/// any locale; "inf", "nan" and hexadecimal are not.
std::optional<double> NumberFromText(std::string_view text);

/// `value` as an integer, ties to even. Throws CommandError with `what` in its text if the result does not fit ("Start
/// record 1E+99 is too large.").
int32_t WholeNumber(double value, std::string_view what);

/// A single-precision number in its shortest form with at most 7 significant digits: 12.5, -3, 1.5E+07.
std::string SingleText(float value);

/// A double-precision number in its shortest form with at most 15 significant digits.
std::string DoubleText(double value);

/// Buffer size for a number's text, in characters.
inline constexpr size_t kNumberRoom = 32;

/// The same texts, for writing millions of them: to the buffer `to` of kNumberRoom characters (those after the text are
/// overwritten too). They return the end of the text.
char* PutSingle(char* to, float value);
char* PutDouble(char* to, double value);

/// A number without an exponent, with as many digits as identify it: 1234567890123456.
std::string PlainDecimal(double value);

/// A count with groups of three digits: 80 000.
std::string Grouped(int64_t count);

}  // namespace pallomir
