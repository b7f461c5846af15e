#pragma once

#include <span>

namespace pallomir {

/// The fewest pairs for which two series have a correlation.
inline constexpr int kFewestPairs = 20;

/// Pearson's r over the pairs that are finite on both sides. NaN for fewer than kFewestPairs, or if one side does not
/// vary: its range is at most 1e-12 of its largest magnitude.
double PearsonOf(std::span<const double> one, std::span<const double> other);

}  // namespace pallomir
