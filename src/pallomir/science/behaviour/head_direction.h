#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/science/measure_settings.h"
#include "pallomir/science/measured.h"
#include "pallomir/science/times.h"

namespace pallomir {

/// Firing by head direction. Bin k covers [k, k + 1) times Width() degrees, counter-clockwise from the right as the
/// camera sees it.
struct DirectionTuning {
  using Bins = std::vector<double>;
  explicit DirectionTuning(int bins = DirectionSettings().Bins) : Spikes(bins), Dwell(bins), Rate(bins) {}

  Bins Spikes;
  Bins Dwell;  ///< seconds
  Bins Rate;   ///< spikes per second: smoothed spikes over smoothed dwell; NaN in bins without dwell
  int64_t SpikesUsed = 0;
  double VectorLength = kNotKnown;     ///< of the mean vector, 0 to 1; NaN if the cell never fired
  double VectorDirection = kNotKnown;  ///< degrees, 0 up to 360
  double Coverage = 0;                 ///< share of bins with dwell, 0 to 1
  double PeakRate = kNotKnown;

  int Count() const { return static_cast<int>(Rate.size()); }
  /// Of a bin, in degrees.
  double Width() const { return 360.0 / static_cast<double>(Rate.size()); }
};

/// The samples of one track by the bins of their directions, for the tuning curves of many trains.
class DirectedSamples {
 public:
  /// `direction` (degrees, 0 up to 360; NaN is skipped) and `hold` (microseconds) have one value per sample.
  DirectedSamples(std::span<const double> direction, std::span<const double> hold,
                  const DirectionSettings& settings = {});

  /// `samples` has the sample index of each spike, or -1. Smoothing is a circular Gaussian, cut off at 4 sigma. The
  /// mean vector is that of the rates of the bins with dwell, taken at the bin centres (Taube et al. 1990, Journal of
  /// Neuroscience 10:420; mean vector after Batschelet 1981, Circular Statistics in Biology).
  DirectionTuning TuningOf(std::span<const int64_t> samples) const;

 private:
  DirectionSettings settings_;
  std::vector<int32_t> bins_;    ///< of the samples, or -1
  DirectionTuning::Bins dwell_;  ///< seconds
};

/// Sets mean vector, coverage and peak from the rates.
void DeriveFromRates(DirectionTuning& tuning);

/// What a tuning curve tells.
struct DirectionMeasures {
  int64_t SpikesUsed = 0;
  Measured VectorLength;     ///< R, of the mean vector
  Measured VectorDirection;  ///< degrees
  Measured RayleighP;        ///< exp(sqrt(1 + 4 n + 4 n^2 (1 - R^2)) - 1 - 2 n) (Zar 2010, Biostatistical Analysis)
  Measured PeakRate;
  Measured Width;         ///< sqrt(-2 ln R), degrees
  Measured BitsPerSpike;  ///< as for maps; the shares of time are those of the dwell, not smoothed
};
DirectionMeasures DirectionMeasuresOf(const DirectionTuning& tuning);

}  // namespace pallomir
