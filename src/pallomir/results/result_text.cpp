#include "pallomir/results/result_text.h"

#include <cmath>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"
#include "pallomir/recorded/position_file.h"

namespace pallomir {

namespace {

constexpr std::string_view kNotANumber = "NaN";

CommandError HeaderFault(const std::filesystem::path& file, std::string_view key, std::string_view value) {
  return FaultAt(ErrorKind::Broken, file, FilePlace::InHeader(),
                 Quoted(value) + " is not a valid value of " + std::string(key));
}

}  // namespace

std::string ResultNumber(double value) {
  return std::isnan(value) ? std::string(kNotANumber) : DoubleText(value);
}

double HeaderNumber(std::string_view header, std::string_view key, const std::filesystem::path& file) {
  const auto text = HeaderValue(header, key);
  if (!text) return kNotKnown;
  const auto number = NumberFromText(*text);
  if (!number) throw HeaderFault(file, key, *text);
  return *number;
}

int64_t HeaderCount(std::string_view header, std::string_view key, const std::filesystem::path& file) {
  const double number = HeaderNumber(header, key, file);
  if (std::isnan(number)) return 0;
  if (number < 0 || number > 1e15 || number != std::floor(number)) throw HeaderFault(file, key, DoubleText(number));
  return static_cast<int64_t>(number);
}

void AddNumber(std::vector<HeaderEntry>& lines, std::string key, double value) {
  if (!std::isnan(value)) lines.push_back({std::move(key), ResultNumber(value)});
}

ResultText::ResultText(const std::filesystem::path& path, std::string_view kind)
    : file_(path),
      text_(ReadText(path)),
      body_(BodyBehindHeader(text_).value_or(TextBody{})),
      lines_(text_, body_),
      line_(body_.FirstLine - 1) {
  if (HeaderValue(Header(), "Kind") != kind)
    throw FaultOf(ErrorKind::Foreign, file_, "is not a file of kind " + std::string(kind));
}

bool ResultText::AtEnd() const {
  return Trimmed(lines_.Rest()).empty();
}

std::string_view ResultText::Line() {
  TextLine line;
  do {
    line_ = lines_.NextNumber();
    if (!lines_.Take(line)) throw EndedEarly(file_, FilePlace::AtLine(line_));
    line.Text = Trimmed(line.Text);
  } while (line.Text.empty());
  return line.Text;
}

void ResultText::Numbers(size_t count, std::vector<double>& into) {
  TextFields fields(Line());
  for (size_t k = 0; k < count; ++k) {
    const std::string_view item = Trimmed(fields.Take());
    const auto number = item == kNotANumber ? kNotKnown : NumberFromText(item);
    if (!number) Fault(Quoted(item) + " is not a number");
    if (fields.More() != (k + 1 < count)) Fault("there should be " + std::to_string(count) + " numbers");
    into.push_back(*number);
  }
}

void ResultText::Fault(const std::string& what) const {
  throw FaultAt(ErrorKind::Broken, file_, FilePlace::AtLine(line_), what);
}

std::string ResultKind(const std::filesystem::path& path) {
  const std::string beginning = ReadText(path, kTextHeaderLimit);
  const long header = TextHeaderLength(beginning);
  if (header < 0) return {};
  return HeaderValue(std::string_view(beginning).substr(0, header), "Kind").value_or("");
}

}  // namespace pallomir
