#pragma once

#include <string>
#include <string_view>

#include "tools/figures.h"
#include "tools/raw/stamp_series.h"

namespace pallomir {

/// Facts about a file, one line each: a label and a text. Oddities have the label "odd". Texts may contain anything;
/// they are escaped.
class Facts {
 public:
  explicit Facts(std::string_view title) : text_(Escaped(title) + "\n") {}

  void Add(std::string_view label, std::string_view text);
  void Odd(std::string_view text) { Add("odd", text); }

  /// Adds the time span, the rate, and the number of stamps out of order. `units` is what is counted ("spikes").
  void AddStamps(const StampSeries& stamps, std::string_view units);

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace pallomir
