#include "pallomir/recorded/position_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_lines.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"

namespace pallomir {

namespace {

constexpr double kFarthest = 1e9;  // the largest absolute coordinate, in pixels

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

bool EndsColumn(char c) {
  return c == ',' || c == ';' || IsBlank(c);
}

void SkipBlanks(std::string_view& line) {
  while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
}

/// Removes the next column from a line and returns it. TextFields would not do: columns are separated by blanks,
/// optionally with one "," or ";".
std::string_view TakeColumn(std::string_view& line) {
  size_t end = 0;
  while (end < line.size() && !EndsColumn(line[end])) ++end;
  const std::string_view column = line.substr(0, end);
  line.remove_prefix(end);
  SkipBlanks(line);
  if (line.empty() || !EndsColumn(line.front())) return column;
  line.remove_prefix(1);
  SkipBlanks(line);
  if (line.empty()) line = " ";  // an empty last column
  return column;
}

/// Whether a column stands for a missing number: empty, "nan" or "inf", in any case and with any sign.
bool SaysNone(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  std::string lower(text.substr(0, 10));
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
  return lower.empty() || lower == "nan" || lower == "inf" || lower == "infinity";
}

/// A coordinate, NaN if missing; empty for any other text.
std::optional<double> Coordinate(std::string_view text) {
  const auto number = NumberFromText(text);
  if (number && std::abs(*number) <= kFarthest) return number;
  if (!number && SaysNone(text)) return kNotKnown;
  return {};
}

std::optional<PositionSample> SampleFrom(std::string_view line) {
  line = Trimmed(line);
  const auto time = NumberFromText(TakeColumn(line));
  if (!time || !IsStamp(*time)) return {};
  std::array<double, 3> values{kNotKnown, kNotKnown, kNotKnown};
  size_t count = 0;
  for (; !line.empty(); ++count) {
    if (count == values.size()) return {};
    const auto value = Coordinate(TakeColumn(line));
    if (!value) return {};
    values[count] = *value;
  }
  if (count < 2) return {};
  return PositionSample{std::llrint(*time), values[0], values[1], values[2]};
}

class TextReader {
 public:
  TextReader(FileReader& file, size_t header, const Progress& progress, Positions& positions)
      : file_(file), header_(header), progress_(progress), positions_(positions) {}

  void Read() {
    ForEachLine(file_, {header_, 1}, [&](const TextLine& line) {
      if (line.Number % 4096 == 0)
        progress_.Reached(static_cast<double>(line.End) / static_cast<double>(file_.Length()));
      TakeLine(line);
    });
    if (positions_.Unreadable > static_cast<int64_t>(positions_.Time.size()))
      throw FaultOf(ErrorKind::Foreign, file_.Path(),
                    "is not a position file: " + firstUnreadable_ + " is not a time, x, y and optionally an angle");
  }

 private:
  void TakeLine(const TextLine& line) {
    const std::string_view text = Trimmed(line.Text);
    if (text.empty() || text.starts_with('#') || text.starts_with('%')) return;
    if (TakeScale(text)) return;
    if (const auto sample = line.IsWhole ? SampleFrom(text) : std::nullopt)
      AppendSample(positions_, *sample);
    else if (line.IsWhole && IsNames(text))
      namesSeen_ = true;
    else if (positions_.Unreadable++ == 0)
      firstUnreadable_ = Quoted(text);
  }

  /// The line "PixelsPerCm,4", allowed before the first sample.
  bool TakeScale(std::string_view text) {
    if (!positions_.Time.empty() || !text.starts_with("PixelsPerCm")) return false;
    TakeColumn(text);
    const double scale = NumberFromText(TakeColumn(text)).value_or(0);
    if (!(scale > 0 && scale <= kFarthest))
      throw FaultAt(ErrorKind::Broken, file_.Path(), {}, "PixelsPerCm must be a number above 0");
    positions_.PixelsPerCm = scale;
    return true;
  }

  /// The column names: one line before the first sample that begins with a letter or a quote.
  bool IsNames(std::string_view text) const {
    const char c = text.front();
    const bool word = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '"' || c == '\'';
    return word && !namesSeen_ && positions_.Time.empty() && positions_.Unreadable == 0;
  }

  FileReader& file_;
  size_t header_;
  const Progress& progress_;
  Positions& positions_;
  bool namesSeen_ = false;
  std::string firstUnreadable_;
};

}  // namespace

void ReadPositionText(FileReader& file, size_t begin, const Progress& progress, Positions& positions) {
  TextReader(file, begin, progress, positions).Read();
}

}  // namespace pallomir
