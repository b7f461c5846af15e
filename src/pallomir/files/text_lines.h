#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

// Texts are read line by line, and lines field by field or word by word, with these. Lines end with LF or CR LF. Files
// are read in the same way with file_lines.h.

namespace pallomir {

/// What a text begins with may be skipped: where the rest begins, in bytes, and the number of its first line.
struct TextBody {
  size_t Begin = 0;
  int FirstLine = 1;
};

/// A line without its line end.
struct TextLine {
  std::string_view Text;
  int Number = 0;       ///< from 1
  size_t End = 0;       ///< bytes of the text up to and with this line and its line end
  bool IsWhole = true;  ///< false for a line of a file that is longer than kLongestLine, and was cut off there
};

/// `line` without the CR that ends it, if any.
inline std::string_view WithoutReturn(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// Takes the lines of a text in memory one after the other. A line end at the very end begins no further line.
class TextLines {
 public:
  explicit TextLines(std::string_view text, const TextBody& body = {})
      : text_(text), place_(body.Begin), next_(body.FirstLine) {}

  /// False at the end of the text; `line` is unchanged then.
  bool Take(TextLine& line) {
    if (place_ >= text_.size()) return false;
    const size_t end = std::min(text_.find('\n', place_), text_.size());
    const std::string_view taken = WithoutReturn(text_.substr(place_, end - place_));
    place_ = std::min(end + 1, text_.size());
    line = {taken, next_++, place_};
    return true;
  }

  /// The number of the next line, whether or not there is one.
  int NextNumber() const { return next_; }
  /// The text after the lines taken.
  std::string_view Rest() const { return text_.substr(place_); }

 private:
  std::string_view text_;
  size_t place_;
  int next_;
};

/// Takes the fields of a line, separated by commas, one after the other. An empty line has one empty field.
class TextFields {
 public:
  explicit TextFields(std::string_view line) : rest_(line) {}

  /// Whether there is a field to take: after the last comma there is one, even if it is empty.
  bool More() const { return more_; }

  /// The next field with the blanks around it; empty if there is none.
  std::string_view Take() {
    const size_t comma = std::min(rest_.find(','), rest_.size());
    const std::string_view field = rest_.substr(0, comma);
    more_ = comma < rest_.size();
    rest_.remove_prefix(more_ ? comma + 1 : comma);
    return field;
  }

  /// Whether the next field is in double quotes. Skips the blanks before it.
  bool AtQuotes() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    return rest_.starts_with('"');
  }

  /// The text between those quotes, which may hold commas; empty if they do not end. What stands behind them is left
  /// for Take().
  std::optional<std::string_view> TakeQuoted() {
    const size_t close = rest_.find('"', 1);
    if (close == std::string_view::npos) return {};
    const std::string_view text = rest_.substr(1, close - 1);
    rest_.remove_prefix(close + 1);
    return text;
  }

  /// What is left of the line.
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
  bool more_ = true;
};

/// Removes the first word of a text, and the blanks before it, from the text and returns it; empty if there is none.
inline std::string_view TakeWord(std::string_view& text, std::string_view blanks = " \t") {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(blanks));
  text.remove_prefix(word.size());
  return word;
}

}  // namespace pallomir
