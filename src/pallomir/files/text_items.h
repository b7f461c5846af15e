#pragma once

#include <string>
#include <string_view>

namespace pallomir {

/// Reads the free delimited format: items separated by commas or line ends, texts in double quotes, blanks before an
/// item skipped. Messages name the file and the line.
class TextItems {
 public:
  /// Longer items are refused, in bytes: what a broken file calls one item may be all of it.
  static constexpr size_t kLongestItem = 4096;

  /// `text` must outlive the reader; `name` is what messages call the file, `firstLine` the line that `text` begins on.
  TextItems(std::string_view text, std::string_view name, int firstLine = 1)
      : text_(text), name_(name), line_(firstLine), nextLine_(firstLine) {}

  /// True when only blanks and line ends are left.
  bool AtEnd() const { return text_.find_first_not_of(" \t\r\n", place_) == std::string_view::npos; }

  /// The next item as text, without its quotes. Throws CommandError at the end of the file, and where quotes do not
  /// end on their line or the item is too long.
  std::string Text();

  /// The next item as a number. Throws CommandError at the end of the file, or when it is not one.
  double Number();

  /// The next item as a single-precision number; one beyond its range is refused as well.
  float Single();

  /// Throws the rest of the present line away.
  void SkipLine();

  /// The 1-based line on which the last item began.
  int Line() const { return line_; }

  /// Ends the command: what is wrong on that line.
  [[noreturn]] void Fault(const std::string& what) const;

 private:
  void SkipBlanks();

  std::string_view text_;
  std::string_view name_;
  size_t place_ = 0;
  int line_;
  int nextLine_;
};

}  // namespace pallomir
