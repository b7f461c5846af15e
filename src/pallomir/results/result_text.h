#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/text_header.h"

namespace pallomir {

/// The text of a number in a result: 15 significant digits, or "NaN".
std::string ResultNumber(double value);

/// The whole number in a header line, 0 if there is no such line. Throws CommandError for any other value.
int64_t HeaderCount(std::string_view header, std::string_view key, const std::filesystem::path& file);

/// The number in a header line; NaN if there is no such line.
double HeaderNumber(std::string_view header, std::string_view key, const std::filesystem::path& file);

/// Adds a line to a header, unless the value is NaN.
void AddNumber(std::vector<HeaderEntry>& lines, std::string key, double value);

/// A result file: its header and the lines after it.
class ResultText {
 public:
  /// Throws CommandError if the file cannot be read or is of another kind ("... is not a file of kind RateMap.").
  ResultText(const std::filesystem::path& path, std::string_view kind);
  ResultText(const ResultText&) = delete;
  ResultText& operator=(const ResultText&) = delete;

  const std::filesystem::path& File() const { return file_; }
  std::string_view Header() const { return std::string_view(text_).substr(0, body_.Begin); }

  /// The next line that is not empty. Throws CommandError at the end of the file.
  std::string_view Line();
  bool AtEnd() const;

  /// Appends the numbers of the next line. Throws CommandError unless there are exactly `count`.
  void Numbers(size_t count, std::vector<double>& into);

  /// Throws CommandError naming the last line read.
  [[noreturn]] void Fault(const std::string& what) const;

 private:
  std::filesystem::path file_;
  std::string text_;
  TextBody body_;
  TextLines lines_;
  int line_;
};

/// The kind of a result file ("RateMap"); empty if it has no header of ours.
std::string ResultKind(const std::filesystem::path& path);

}  // namespace pallomir
