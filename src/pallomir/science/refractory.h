#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "pallomir/science/binomial_interval.h"
#include "pallomir/science/train.h"

namespace pallomir {

/// No cell fires twice within Period; within Censored after a spike none would have been recorded. Microseconds.
struct Refractory {
  double Period = kRefractoryPeriod;
  double Censored = 0;
};

/// The share of spikes that are not the cell's, 0 to 0.5. More short intervals than any such share gives are TooMany:
/// the cluster is not one cell, and Share is 0.5.
struct Contamination {
  double Share = 0;
  bool TooMany = false;
};

/// What the intervals shorter than the refractory period say about a cluster.
struct RefractoryFigures {
  int64_t Intervals = 0;
  int64_t Short = 0;            ///< intervals shorter than the period: violations of it
  std::optional<double> Share;  ///< Short / Intervals; empty where there is no interval
  /// Empty where it cannot be told.
  std::optional<Contamination> Foreign;
  /// The same with as many violations as the ends of the 95 % interval of Share stand for (BinomialInterval).
  Contamination Least, Most;
};

/// Solves Short = 2 (Period - Censored) N^2 (1 - f) f / T for the smaller f (Hill et al. 2011), N spikes at `times`
/// (microseconds, in order) being recorded in `duration` microseconds T. It takes what is not the cell's for the spikes
/// of one other cell, which keep the period among themselves; those of many cells would make more violations.
RefractoryFigures RefractoryFiguresOf(std::span<const int64_t> times, double duration, const Refractory& refractory);

}  // namespace pallomir
