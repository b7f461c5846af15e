#include "tools/figures.h"

#include <algorithm>
#include <charconv>

#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"

namespace pallomir {

std::string CountText(uint64_t count) {
  return Grouped(static_cast<int64_t>(count));
}

std::string RoundedText(double value, int decimals) {
  char buffer[400];  // the largest double has 309 digits
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  return std::string(buffer, end);
}

std::string Escaped(std::string_view text) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string escaped;
  while (!text.empty()) {
    const size_t length = PrintableCharacter(text);
    const auto byte = static_cast<unsigned char>(text[0]);
    if (length > 0)
      escaped += text.substr(0, length);
    else
      escaped.append("\\x") += {digits[byte / 16], digits[byte % 16]};
    text.remove_prefix(std::max<size_t>(length, 1));
  }
  return escaped;
}

std::string DurationText(uint64_t microseconds) {
  const uint64_t minutes = microseconds / 60'000'000;
  const std::string seconds = RoundedText(static_cast<double>(microseconds % 60'000'000) * 1e-6, 3) + " s";
  return minutes == 0 ? seconds : CountText(minutes) + " min " + seconds;
}

}  // namespace pallomir
