#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "pallomir/science/statistics/binomial_interval.h"
#include "pallomir/science/trains/train.h"

namespace pallomir {

/// No cell fires twice within Period; no spike is recorded within Censored after another. Microseconds.
struct Refractory {
  double Period = kRefractoryPeriod;
  double Censored = 0;
};

/// The share of spikes that come from other cells, 0 to 0.5. If there are more short intervals than any share explains,
/// TooMany is true: the cluster is not one cell, and Share is 0.5.
struct Contamination {
  double Share = 0;
  bool TooMany = false;
};

/// What the intervals shorter than the refractory period tell about a cluster.
struct RefractoryFigures {
  int64_t Intervals = 0;
  int64_t Short = 0;            ///< intervals shorter than the refractory period (violations)
  std::optional<double> Share;  ///< Short / Intervals; empty without intervals
  /// Empty if it cannot be computed.
  std::optional<Contamination> Foreign;
  /// The same for the violations at the two ends of the 95 % confidence interval of Share (BinomialInterval).
  Contamination Least, Most;
};

/// Solves Short = 2 (Period - Censored) N^2 (1 - f) f / T for the smaller f (Hill et al. 2011), for N spikes at `times`
/// (microseconds, in order) recorded in `duration` microseconds T. It assumes that all foreign spikes come from one
/// other cell, with the same refractory period; spikes of several cells would cause more violations.
RefractoryFigures RefractoryFiguresOf(std::span<const int64_t> times, double duration, const Refractory& refractory);

}  // namespace pallomir
