#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "pallomir/science/times.h"

namespace pallomir {

inline constexpr int kDirectionBins = 60;
inline constexpr double kDirectionBin = 360.0 / kDirectionBins;  ///< degrees

/// How a cell fires by direction. Bin k is [k, k + 1) times kDirectionBin degrees, counter-clockwise from the right
/// as the camera sees it.
struct DirectionTuning {
  using Bins = std::array<double, kDirectionBins>;
  Bins Spikes{};
  Bins Dwell{};  ///< seconds
  Bins Rate{};   ///< spikes a second: smoothed spikes over smoothed dwell; NaN where there is no dwell
  int64_t SpikesUsed = 0;
  double VectorLength = kNotKnown;     ///< of the mean vector, 0 to 1; NaN where the cell never fired
  double VectorDirection = kNotKnown;  ///< degrees, 0 up to 360
  double Coverage = 0;                 ///< the share of bins with dwell, 0 to 1
  double PeakRate = kNotKnown;
};

/// `direction` (degrees, 0 up to 360, NaN left out) and `hold` (microseconds) by sample; `samples` names the sample of
/// each spike, or is -1. The smoothing is a circular Gaussian of 6 degrees, cut off at 4 sigma. The mean vector is that
/// of the rates of the bins with dwell, at the middle of each (Taube et al. 1990, Journal of Neuroscience 10:420; mean
/// vector after Batschelet 1981, Circular Statistics in Biology).
DirectionTuning TuningOf(std::span<const double> direction, std::span<const double> hold,
                         std::span<const int64_t> samples);

/// Sets what follows from the rates: mean vector, coverage and peak.
void DeriveFromRates(DirectionTuning& tuning);

}  // namespace pallomir
