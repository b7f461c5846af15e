#include "pallomir/files/text_header.h"

#include <algorithm>
#include <ctime>

#include "pallomir/files/platform.h"

namespace pallomir {

namespace {

constexpr std::string_view kLastLine = "# End of header";

std::string OnOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  return text;
}

}  // namespace

std::string TextHeader(std::string_view kind, std::string_view date, const std::vector<HeaderEntry>& more) {
  std::string header = "# Pallomir " PALLOMIR_VERSION "\r\n# Kind: ";
  header.append(kind).append("\r\n# Version: 1\r\n# Date: ");
  header.append(date.empty() ? LocalTime(std::time(nullptr), "%Y-%m-%d %H:%M:%S") : std::string(date)).append("\r\n");
  for (const auto& [key, value] : more)
    header.append("# ").append(OnOneLine(key)).append(": ").append(OnOneLine(value)).append("\r\n");
  return header.append(kLastLine).append("\r\n");
}

std::optional<std::string> HeaderValue(std::string_view header, std::string_view key) {
  const std::string start = "# " + std::string(key) + ": ";
  TextLines lines(header);
  TextLine line;
  lines.Take(line);  // names the program
  while (lines.Take(line)) {
    if (!line.Text.starts_with(start)) continue;
    const std::string_view value = line.Text.substr(start.size());
    return std::string(value.substr(0, value.find('\r')));
  }
  return {};
}

long TextHeaderLength(std::string_view beginning) {
  const auto body = BodyBehindHeader(beginning);
  return body ? static_cast<long>(body->Begin) : -1;
}

std::optional<TextBody> BodyBehindHeader(std::string_view beginning) {
  beginning = beginning.substr(0, kTextHeaderLimit);
  TextLines lines(beginning);
  for (TextLine line; lines.Take(line);)
    if (line.Text == kLastLine && beginning[line.End - 1] == '\n') return TextBody{line.End, line.Number + 1};
  return {};
}

}  // namespace pallomir
