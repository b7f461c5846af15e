#pragma once

#include <cstddef>

namespace pallomir {

/// into[i] += weight * from[i] for `count` numbers: what all direct sums over rows of maps are made of.
void AddScaled(const double* from, double weight, double* into, size_t count);

}  // namespace pallomir
