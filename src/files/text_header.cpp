#include "files/text_header.h"

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

}  // namespace

std::string TextHeader(std::string_view kind, std::string_view date) {
  std::string header = "# Pallomir " PALLOMIR_VERSION "\r\n# Kind: ";
  header.append(kind).append("\r\n# Version: 1\r\n# Date: ");
  header.append(date.empty() ? Now() : std::string(date)).append("\r\n").append(kLastLine).append("\r\n");
  return header;
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

}  // namespace pallomir
