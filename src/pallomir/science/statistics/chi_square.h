#pragma once

namespace pallomir {

/// The probability that a chi-square variable with `degrees` degrees of freedom (1 to 200) exceeds `x`: 1 for x <= 0,
/// NaN for NaN. All terms of the sums are positive (Abramowitz and Stegun 1964, 26.4.4 and 26.4.5), so that small
/// probabilities stay precise.
double ChiSquareSurvival(double x, int degrees);

}  // namespace pallomir
