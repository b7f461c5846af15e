#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pallomir {

/// `text` without the blanks, tabs and line ends around it.
std::string_view Trimmed(std::string_view text);

/// The number that a text holds, or nothing when it is not one. Blanks around it, a sign, "." and an exponent are
/// understood, whatever the locale; "inf", "nan" and hexadecimal are not numbers.
std::optional<double> NumberFromText(std::string_view text);

/// `value` as a whole number, halves to the even neighbour. Throws CommandError with `what` in its sentence when the
/// result does not fit ("Start record 1E+99 is too large.").
int32_t WholeNumber(double value, std::string_view what);

/// A single-precision number in its shortest form of at most 7 significant digits: 12.5, -3, 1.5E+07.
std::string SingleText(float value);

/// A double-precision number in its shortest form of at most 15 significant digits.
std::string DoubleText(double value);

/// Room for a number's text, in characters.
inline constexpr size_t kNumberRoom = 32;

/// The same texts where millions of them are written: at `to`, which has kNumberRoom characters (those behind the text
/// are overwritten too). They return the text's end.
char* PutSingle(char* to, float value);
char* PutDouble(char* to, double value);

/// A number without exponent and with as many digits as tell it from every other: 1234567890123456.
std::string PlainDecimal(double value);

/// A count with thousands set apart for reading: 80 000.
std::string Grouped(int64_t count);

}  // namespace pallomir
