#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pallomir/science/behaviour/tracking.h"
#include "pallomir/science/measure_settings.h"
#include "pallomir/science/measured.h"

namespace pallomir {

/// How firing depends on running speed.
struct SpeedMeasures {
  Measured Score;  ///< correlation of rate and speed (Kropff et al. 2015, Nature 523:419)
  Measured Slope;  ///< spikes per second for each cm per second, by least squares
};

/// Compares spike trains with the speed on one track. The rate at a sample is the spikes over the hold times of the
/// samples that have a position, both smoothed with a Gaussian of 250 ms; samples of 2 cm/s and faster count, within
/// the speed range of the settings.
class SpeedAnalysis {
 public:
  /// `track` is one of TrackOver().
  SpeedAnalysis(const Track& track, const MapSettings& settings);

  /// `samples` has the sample of each spike, or -1.
  SpeedMeasures Of(std::span<const int64_t> samples) const;

 private:
  std::vector<uint8_t> placed_;
  std::vector<double> weights_;  ///< of the Gaussian; none if it cannot be made
  std::vector<double> seconds_;  ///< smoothed hold times
  std::vector<size_t> counted_;  ///< the samples that count
  std::vector<double> speed_;    ///< at these, cm per second
};

}  // namespace pallomir
