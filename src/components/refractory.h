#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "components/train.h"

namespace pallomir {

/// No cell fires twice within Period; within Censored after a spike none would have been recorded. Microseconds.
struct Refractory {
  double Period = kRefractoryPeriod;
  double Censored = 0;
};

/// What the intervals shorter than the refractory period say about a cluster.
struct RefractoryFigures {
  int64_t Intervals = 0;
  int64_t Short = 0;            ///< intervals shorter than the period
  std::optional<double> Share;  ///< Short / Intervals; empty where there is no interval
  /// The share f of spikes that are not the cell's, 0 to 0.5; empty where it cannot be told, and where TooMany.
  std::optional<double> Contamination;
  /// There are more short intervals than any contamination gives: the cluster is not one cell.
  bool TooMany = false;
};

/// Solves Short = 2 (Period - Censored) N^2 (1 - f) f / T for the smaller f (Hill et al. 2011), N spikes at `times`
/// (microseconds, in order) being recorded in `duration` microseconds T. It takes what is not the cell's for spikes of
/// many others, at times of their own.
RefractoryFigures RefractoryFiguresOf(std::span<const int64_t> times, double duration, const Refractory& refractory);

}  // namespace pallomir
