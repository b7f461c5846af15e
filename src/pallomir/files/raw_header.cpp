#include "pallomir/files/raw_header.h"

#include <algorithm>

#include "pallomir/files/number_text.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/text_case.h"
#include "pallomir/files/text_lines.h"

namespace pallomir {

namespace {

/// These headers are not read with TextLines: they come from several programs, which end a line with any of these, and
/// are filled up with zeros.
constexpr std::string_view kLineEnds("\r\n\0", 3);

std::string_view ValueOf(std::string_view header, std::string_view key) {
  while (!header.empty()) {
    std::string_view line = header.substr(0, header.find_first_of(kLineEnds));
    header.remove_prefix(std::min(line.size() + 1, header.size()));
    const std::string_view word = TakeWord(line);
    if (word.starts_with('-') && SameButForCase(word.substr(1), key)) return Trimmed(line);
  }
  return {};
}

}  // namespace

std::string HeaderText(std::string_view header, std::string_view key) {
  std::string text(ValueOf(header, key));
  for (char& c : text)
    if (c < 32 || c > 126) c = '?';
  return text;
}

std::vector<double> HeaderNumbers(std::string_view header, std::string_view key) {
  std::vector<double> numbers;
  std::string_view rest = ValueOf(header, key);
  while (const auto number = NumberFromText(TakeWord(rest))) numbers.push_back(*number);
  return numbers;
}

std::string MakeRawHeader(std::string_view title, const std::vector<std::pair<std::string, std::string>>& lines) {
  std::string header = "######## " + std::string(title) + "\r\n";
  for (const auto& [key, value] : lines) header.append("-").append(key).append(" ").append(value).append("\r\n");
  header.resize(kRawHeaderLength, '\0');
  return header;
}

}  // namespace pallomir
