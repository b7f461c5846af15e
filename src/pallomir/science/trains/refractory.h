#pragma once

#include <cstdint>
#include <span>

#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measured.h"
#include "pallomir/science/trains/train.h"

namespace pallomir {

/// No cell fires twice within Period; no spike is recorded within Censored after another. Microseconds.
struct Refractory {
  double Period = kRefractoryPeriod;
  double Censored = 0;
};

/// An estimate with the ends of its 95 % interval.
struct Estimate {
  Measured Value;
  Measured Low, High;
};

/// What the spikes closer than the refractory period tell about a cluster of N spikes in loaded time T. Contamination
/// is the share of spikes that come from other cells.
struct RefractoryMeasures {
  int64_t Intervals = 0;
  int64_t Short = 0;       ///< intervals shorter than the refractory period (violations)
  int64_t ShortPairs = 0;  ///< pairs of spikes closer than that, neighbours or not
  Estimate Share;          ///< Short / Intervals (Clopper and Pearson 1934, Biometrika 26:404)
  /// If all come from one other cell (Hill et al. 2011, J Neurosci 31:8699): the smaller solution of
  /// Short = 2 (Period - Censored) N^2 (1 - f) f / T, or 0.5 if there is none.
  Estimate ContaminationByOne;
  /// If they come from many other cells (Llobet et al. 2022, bioRxiv 2022.02.08.479192):
  /// 1 - sqrt(1 - ShortPairs (T - 2 N Censored) / (N^2 (Period - Censored))), or 1 if there is no such root.
  Estimate ContaminationByMany;
};

/// `spikes` in microseconds, in time order, all within `time`.
RefractoryMeasures RefractoryMeasuresOf(std::span<const int64_t> spikes, const LoadedTime& time,
                                        const Refractory& refractory);

}  // namespace pallomir
