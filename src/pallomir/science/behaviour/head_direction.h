#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "pallomir/science/times.h"

namespace pallomir {

inline constexpr int kDirectionBins = 60;
inline constexpr double kDirectionBin = 360.0 / kDirectionBins;  ///< degrees

/// Firing by head direction. Bin k covers [k, k + 1) times kDirectionBin degrees, counter-clockwise from the right as
/// the camera sees it.
struct DirectionTuning {
  using Bins = std::array<double, kDirectionBins>;
  Bins Spikes{};
  Bins Dwell{};  ///< seconds
  Bins Rate{};   ///< spikes per second: smoothed spikes over smoothed dwell; NaN in bins without dwell
  int64_t SpikesUsed = 0;
  double VectorLength = kNotKnown;     ///< of the mean vector, 0 to 1; NaN if the cell never fired
  double VectorDirection = kNotKnown;  ///< degrees, 0 up to 360
  double Coverage = 0;                 ///< share of bins with dwell, 0 to 1
  double PeakRate = kNotKnown;
};

/// `direction` (degrees, 0 up to 360; NaN is skipped) and `hold` (microseconds) have one value per sample; `samples`
/// has the sample index of each spike, or -1. Smoothing is a circular Gaussian with a sigma of 6 degrees, cut off at 4
/// sigma. The mean vector is that of the rates of the bins with dwell, taken at the bin centres (Taube et al. 1990,
/// Journal of Neuroscience 10:420; mean vector after Batschelet 1981, Circular Statistics in Biology).
DirectionTuning TuningOf(std::span<const double> direction, std::span<const double> hold,
                         std::span<const int64_t> samples);

/// Sets mean vector, coverage and peak from the rates.
void DeriveFromRates(DirectionTuning& tuning);

}  // namespace pallomir
