#pragma once

#include <cstdint>

namespace pallomir {

struct Interval {
  double Low = 0;
  double High = 0;
};

/// The 95 % confidence interval of a probability after `hits` in `trials` (1 or more): exact, after Clopper and Pearson
/// (1934), Biometrika 26:404. Low is the 0.025 quantile of Beta(hits, trials - hits + 1), High the 0.975 quantile of
/// Beta(hits + 1, trials - hits); Low is 0 without hits, High is 1 without misses.
Interval BinomialInterval(int64_t hits, int64_t trials);

}  // namespace pallomir
