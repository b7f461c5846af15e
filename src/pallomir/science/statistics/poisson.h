#pragma once

#include <cstdint>

namespace pallomir {

/// The smallest n for which a Poisson variable of mean `mean` is n or less with a probability of `p` or more.
int64_t PoissonQuantile(double p, double mean);

/// The probability that a Poisson variable is more than `count`, plus half of that of `count` itself.
double PoissonExcess(int64_t count, double mean);

}  // namespace pallomir
