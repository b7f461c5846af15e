#pragma once

#include <string>
#include <string_view>

#include "tools/figures.h"
#include "tools/raw/stamp_series.h"

namespace pallomir {

/// What is known about a file, a line each: a label and a text. Oddities have the label "odd". Texts may hold anything;
/// it is escaped.
class Facts {
 public:
  explicit Facts(std::string_view title) : text_(Escaped(title) + "\n") {}

  void Add(std::string_view label, std::string_view text);
  void Odd(std::string_view text) { Add("odd", text); }

  /// The span of time, the rate, and how much is out of order. `units` is what is counted ("spikes").
  void AddStamps(const StampSeries& stamps, std::string_view units);

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace pallomir
