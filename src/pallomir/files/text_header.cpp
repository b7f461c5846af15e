#include "pallomir/files/text_header.h"

#include <algorithm>
#include <ctime>

namespace pallomir {

namespace {

constexpr std::string_view kLastLine = "# End of header";

std::string Now() {
  const std::time_t now = std::time(nullptr);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&now));
  return text;
}

std::string OnOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, '?');
  return text;
}

}  // namespace

std::string TextHeader(std::string_view kind, std::string_view date, const std::vector<HeaderEntry>& more) {
  std::string header = "# Pallomir " PALLOMIR_VERSION "\r\n# Kind: ";
  header.append(kind).append("\r\n# Version: 1\r\n# Date: ");
  header.append(date.empty() ? Now() : std::string(date)).append("\r\n");
  for (const auto& [key, value] : more)
    header.append("# ").append(OnOneLine(key)).append(": ").append(OnOneLine(value)).append("\r\n");
  return header.append(kLastLine).append("\r\n");
}

std::optional<std::string> HeaderValue(std::string_view header, std::string_view key) {
  const std::string start = "\n# " + std::string(key) + ": ";
  const size_t place = header.find(start);
  if (place == std::string_view::npos) return {};
  const std::string_view rest = header.substr(place + start.size());
  return std::string(rest.substr(0, rest.find_first_of("\r\n")));
}

long TextHeaderLength(std::string_view beginning) {
  beginning = beginning.substr(0, kTextHeaderLimit);
  for (size_t line = 0; line < beginning.size();) {
    const size_t end = beginning.find('\n', line);
    if (end == std::string_view::npos) return -1;
    std::string_view text = beginning.substr(line, end - line);
    if (text.ends_with('\r')) text.remove_suffix(1);
    if (text == kLastLine) return static_cast<long>(end + 1);
    line = end + 1;
  }
  return -1;
}

std::optional<TextBody> BodyBehindHeader(std::string_view beginning) {
  const long length = TextHeaderLength(beginning);
  if (length < 0) return {};
  return TextBody{static_cast<size_t>(length),
                  1 + static_cast<int>(std::count(beginning.begin(), beginning.begin() + length, '\n'))};
}

}  // namespace pallomir
