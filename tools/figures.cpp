#include "tools/figures.h"

#include <algorithm>
#include <charconv>

#include "files/number_text.h"

namespace pallomir {

std::string CountText(uint64_t count) {
  return Grouped(static_cast<int64_t>(count));
}

std::string RoundedText(double value, int decimals) {
  char buffer[400];  // the largest double has 309 digits
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  return std::string(buffer, end);
}

/// The length of the character that `text` begins with, in bytes; 0 when that is a control character or no UTF-8.
static size_t PrintableLength(std::string_view text) {
  const auto byte = [text](size_t i) { return static_cast<unsigned char>(i < text.size() ? text[i] : '\0'); };
  if (byte(0) < 0x80) return byte(0) >= 0x20 && byte(0) != 0x7F ? 1 : 0;
  const size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
  if (byte(0) < 0xC2 || byte(0) > 0xF4) return 0;
  for (size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 0;
  // Longer forms than needed, halves of pairs, what lies beyond the last character, and the controls above 0x7F.
  if ((byte(0) == 0xE0 && byte(1) < 0xA0) || (byte(0) == 0xED && byte(1) > 0x9F)) return 0;
  if ((byte(0) == 0xF0 && byte(1) < 0x90) || (byte(0) == 0xF4 && byte(1) > 0x8F)) return 0;
  return byte(0) == 0xC2 && byte(1) < 0xA0 ? 0 : length;
}

std::string Escaped(std::string_view text) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string escaped;
  while (!text.empty()) {
    const size_t length = PrintableLength(text);
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
