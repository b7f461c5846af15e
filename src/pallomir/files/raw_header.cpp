#include "pallomir/files/raw_header.h"

#include <algorithm>

#include "pallomir/files/number_text.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/text_case.h"

namespace pallomir {

namespace {

constexpr std::string_view kLineEnds("\r\n\0", 3);
constexpr std::string_view kBlanks = " \t";

std::string_view NextWord(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  const std::string_view word = line.substr(0, line.find_first_of(kBlanks));
  line.remove_prefix(word.size());
  return word;
}

std::string_view ValueOf(std::string_view header, std::string_view key) {
  while (!header.empty()) {
    std::string_view line = header.substr(0, header.find_first_of(kLineEnds));
    header.remove_prefix(std::min(line.size() + 1, header.size()));
    const std::string_view word = NextWord(line);
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
  while (const auto number = NumberFromText(NextWord(rest))) numbers.push_back(*number);
  return numbers;
}

std::string MakeRawHeader(std::string_view title, const std::vector<std::pair<std::string, std::string>>& lines) {
  std::string header = "######## " + std::string(title) + "\r\n";
  for (const auto& [key, value] : lines) header.append("-").append(key).append(" ").append(value).append("\r\n");
  header.resize(kRawHeaderBytes, '\0');
  return header;
}

}  // namespace pallomir
