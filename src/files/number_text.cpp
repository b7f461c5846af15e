#include "files/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "files/error.h"

namespace pallomir {

namespace {

/// The shortest text of `value` with at most `digits` significant digits, its exponent with a sign and at least two
/// digits. Exponents appear where the number would need more than `digits` digits before the point, or has four zeros
/// behind it.
std::string ShortestText(double value, int digits) {
  if (value == 0) return "0";
  char buffer[64];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits).ptr;
  std::string text(buffer, end);
  if (const size_t e = text.find('e'); e != std::string::npos) text[e] = 'E';
  return text;
}

/// The power of ten of a number's first digit that is not 0, roughly: enough to tell a huge number from a tiny one.
double PowerOfTen(std::string_view number) {
  const size_t e = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, e);
  const size_t point = std::min(digits.find('.'), digits.size());
  const size_t leading = std::min(digits.find_first_of("123456789"), digits.size());
  double exponent = 0;
  bool negative = false;
  for (const char c : number.substr(e)) {
    if (c == '-') negative = true;
    if (c >= '0' && c <= '9') exponent = exponent * 10 + (c - '0');
  }
  return static_cast<double>(point) - static_cast<double>(leading) + (negative ? -exponent : exponent);
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<double> NumberFromText(std::string_view text) {
  text = Trimmed(text);
  const bool plus = text.starts_with('+');
  if (plus) text.remove_prefix(1);
  const size_t first = !plus && text.starts_with('-') ? 1 : 0;
  if (first >= text.size() || !(text[first] == '.' || (text[first] >= '0' && text[first] <= '9'))) return {};
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size()) return {};
  if (error == std::errc::result_out_of_range) {
    const double largest = std::numeric_limits<double>::max();
    return PowerOfTen(text) < 0 ? 0 : first ? -largest : largest;
  }
  if (error != std::errc()) return {};
  return value;
}

int32_t WholeNumber(double value, std::string_view what) {
  const double whole = std::nearbyint(value);
  if (!(std::abs(whole) <= std::numeric_limits<int32_t>::max()))
    throw CommandError(std::string(what) + " " + DoubleText(value) + " is too large.");
  return static_cast<int32_t>(whole);
}

std::string SingleText(float value) {
  return ShortestText(value, 7);
}

std::string DoubleText(double value) {
  return ShortestText(value, 15);
}

std::string PlainDecimal(double value) {
  char buffer[512];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
  return std::string(buffer, end);
}

std::string Grouped(int64_t count) {
  std::string text = std::to_string(count);
  const int first = text.starts_with('-') ? 1 : 0;
  for (int place = static_cast<int>(text.size()) - 3; place > first; place -= 3) text.insert(place, "\u202f");
  return text;
}

}  // namespace pallomir
