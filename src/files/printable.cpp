#include "files/printable.h"

#include <algorithm>

#include "files/platform.h"

namespace pallomir {

namespace {

constexpr size_t kMostQuoted = 40;

/// The length in bytes that the first byte of a character gives it; 0 for a byte that begins none.
size_t LengthBegunBy(unsigned char first) {
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4) return 0;
  return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// The length of the printable character at the start of `text`, or 0 when there is none.
size_t PrintableLength(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < ' ' || first == 0x7F) return 0;
  const size_t length = LengthBegunBy(first);
  if (length > text.size()) return 0;
  const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  if (length > 1 && !std::all_of(text.begin() + 1, text.begin() + static_cast<long>(length), continues)) return 0;
  // The control characters from U+0080 to U+009F, which terminals obey as well.
  if (first == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0) return 0;
  return length;
}

/// Takes the first character off `text`, as it can be shown.
std::string_view TakeCharacter(std::string_view& text) {
  const size_t length = PrintableLength(text);
  const std::string_view character = length > 0 ? text.substr(0, length) : "?";
  text.remove_prefix(std::max<size_t>(length, 1));
  return character;
}

}  // namespace

std::string Printable(std::string_view sentence) {
  const std::string readable = ReadablePath(sentence);
  std::string_view text = readable;
  std::string shown;
  while (!text.empty()) {
    const bool lineFeed = text.front() == '\n';
    const std::string_view character = TakeCharacter(text);
    shown += lineFeed ? "\n" : character;
  }
  return shown;
}

std::string Quoted(std::string_view text) {
  std::string shown = "\"";
  for (size_t characters = 0; characters < kMostQuoted && !text.empty(); ++characters) shown += TakeCharacter(text);
  return shown + '"';
}

}  // namespace pallomir
