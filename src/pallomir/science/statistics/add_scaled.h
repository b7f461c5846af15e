#pragma once

#include <cstddef>

namespace pallomir {

/// into[i] += weight * from[i] for `count` numbers: the inner loop of all direct sums over map rows.
void AddScaled(const double* from, double weight, double* into, size_t count);

}  // namespace pallomir
