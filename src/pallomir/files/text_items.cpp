#include "pallomir/files/text_items.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"

namespace pallomir {

void TextItems::SkipBlanks() {
  while (offset_ < text_.size() && std::string_view(" \t\r\n").find(text_[offset_]) != std::string_view::npos)
    nextLine_ += text_[offset_++] == '\n';
}

std::string TextItems::Text() {
  SkipBlanks();
  line_ = nextLine_;
  if (offset_ >= text_.size()) throw EndedEarly(file_, Place());
  std::string_view item;
  size_t end = 0;
  if (text_[offset_] == '"') {
    // An item never spans lines, even in quotes.
    const size_t close = std::min(text_.find_first_of("\"\r\n", offset_ + 1), text_.size());
    if (close == text_.size() || text_[close] != '"')
      Fault("the quotes round " + Quoted(text_.substr(offset_ + 1, close - offset_ - 1)) + " are not closed");
    item = text_.substr(offset_ + 1, close - offset_ - 1);
    end = std::min(text_.find_first_of(",\r\n", close + 1), text_.size());
  } else {
    end = std::min(text_.find_first_of(",\r\n", offset_), text_.size());
    item = Trimmed(text_.substr(offset_, end - offset_));
  }
  if (item.size() > kLongestItem) Fault("an item is longer than " + std::to_string(kLongestItem) + " characters");
  // Consume the delimiter: a comma or one line end.
  if (end < text_.size() && text_[end] == '\r') ++end;
  if (end < text_.size() && (text_[end] == ',' || text_[end] == '\n')) nextLine_ += text_[end++] == '\n';
  offset_ = end;
  return std::string(item);
}

void TextItems::SkipLine() {
  const size_t end = text_.find('\n', offset_);
  offset_ = end == std::string_view::npos ? text_.size() : end + 1;
  ++nextLine_;
}

void TextItems::Fault(const std::string& what) const {
  throw FaultAt(ErrorKind::Broken, file_, Place(), what);
}

double TextItems::Number() {
  const std::string item = Text();
  const auto number = NumberFromText(item);
  if (!number) Fault(Quoted(item) + " is not a number");
  return *number;
}

float TextItems::Single() {
  const double number = Number();
  if (std::abs(number) > std::numeric_limits<float>::max())
    Fault(DoubleText(number) + " is too large for single precision");
  return static_cast<float>(number);
}

}  // namespace pallomir
