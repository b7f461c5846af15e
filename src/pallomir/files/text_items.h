#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "pallomir/files/error.h"

namespace pallomir {

/// Reads comma- or line-separated items; texts are in double quotes, blanks before an item are skipped. An item may
/// stand on the line of the one before or on the next, so that the items of these files, unlike TextFields, belong to
/// no line. Messages name the file and the line.
class TextItems {
 public:
  /// The longest item in bytes; in a broken file a single item may span all of it.
  static constexpr size_t kLongestItem = 4096;

  /// `text` must outlive the reader; `file` is named in messages, `firstLine` is the number of the line on which
  /// `text` begins.
  TextItems(std::string_view text, std::filesystem::path file, int firstLine = 1)
      : text_(text), file_(std::move(file)), line_(firstLine), nextLine_(firstLine) {}

  /// True if only blanks and line ends remain.
  bool AtEnd() const { return text_.find_first_not_of(" \t\r\n", offset_) == std::string_view::npos; }

  /// The next item as text, without its quotes. Throws CommandError at the end of the file, if quotes are not closed on
  /// their line, or if the item is too long.
  std::string Text();

  /// The next item as a number. Throws CommandError at the end of the file or if it is not a number.
  double Number();

  /// The next item as a single-precision number. Also throws CommandError if it is out of range.
  float Single();

  /// Skips the rest of the current line.
  void SkipLine();

  /// The 1-based line on which the last item began.
  int Line() const { return line_; }
  FilePlace Place() const { return FilePlace::AtLine(line_); }

  /// Throws CommandError: `what` is wrong on that line.
  [[noreturn]] void Fault(const std::string& what) const;

 private:
  void SkipBlanks();

  std::string_view text_;
  std::filesystem::path file_;
  size_t offset_ = 0;
  int line_;
  int nextLine_;
};

}  // namespace pallomir
