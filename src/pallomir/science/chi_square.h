#pragma once

namespace pallomir {

/// The probability that a chi-square variable of `degrees` degrees of freedom (1 to 200) exceeds `x`: 1 at and below
/// 0, NaN for NaN. Its sums have positive terms only (Abramowitz and Stegun 1964, 26.4.4 and 26.4.5), so that small
/// probabilities keep their digits.
double ChiSquareSurvival(double x, int degrees);

}  // namespace pallomir
