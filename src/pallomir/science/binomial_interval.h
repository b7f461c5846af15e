#pragma once

#include <cstdint>

namespace pallomir {

/// From Low to High.
struct Interval {
  double Low = 0;
  double High = 0;
};

/// The 95 % interval of a probability of which `hits` of `trials` (1 or more) were seen: exact, of Clopper and Pearson
/// (1934), Biometrika 26:404. Low is the 0.025 quantile of the beta distribution of (hits, trials - hits + 1), High the
/// 0.975 quantile of that of (hits + 1, trials - hits); Low is 0 where there was no hit, High 1 where there was no
/// miss.
Interval BinomialInterval(int64_t hits, int64_t trials);

}  // namespace pallomir
