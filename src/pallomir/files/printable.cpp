#include "pallomir/files/printable.h"

#include <algorithm>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr size_t kMostQuoted = 40;

/// Removes the first character from `text` and returns it, or "?" if it is not printable.
std::string_view TakeCharacter(std::string_view& text) {
  const size_t length = PrintableCharacter(text);
  const std::string_view character = length > 0 ? text.substr(0, length) : "?";
  text.remove_prefix(std::max<size_t>(length, 1));
  return character;
}

}  // namespace

size_t PrintableCharacter(std::string_view text) {
  const auto byte = [text](size_t i) { return static_cast<unsigned char>(i < text.size() ? text[i] : '\0'); };
  if (byte(0) < 0x80) return byte(0) >= 0x20 && byte(0) != 0x7F ? 1 : 0;
  const size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
  if (byte(0) < 0xC2 || byte(0) > 0xF4) return 0;
  for (size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 0;
  // Overlong forms, surrogates and code points beyond the last.
  if ((byte(0) == 0xE0 && byte(1) < 0xA0) || (byte(0) == 0xED && byte(1) > 0x9F)) return 0;
  if ((byte(0) == 0xF0 && byte(1) < 0x90) || (byte(0) == 0xF4 && byte(1) > 0x8F)) return 0;
  // U+0080 to U+009F are control characters that terminals interpret as well.
  return byte(0) == 0xC2 && byte(1) < 0xA0 ? 0 : length;
}

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
