#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "pallomir/files/progress.h"
#include "pallomir/science/behaviour/grid_score.h"
#include "pallomir/science/behaviour/head_direction.h"
#include "pallomir/science/behaviour/place_measures.h"
#include "pallomir/science/behaviour/positions.h"
#include "pallomir/science/behaviour/speed_measures.h"
#include "pallomir/science/behaviour/tracking.h"
#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measure_settings.h"
#include "pallomir/science/trains/circular_shifts.h"

namespace pallomir {

/// What a cell has to do with where the animal is, where it looks and how fast it runs.
struct BehaviourMeasures {
  PlaceMeasures Place;
  Measured StabilityHalves, StabilityMinutes;
  GridMeasures Grid;
  DirectionMeasures Direction;
  Measured DirectionStabilityHalves, DirectionStabilityMinutes;
  SpeedMeasures Speed;
};

/// The same measures against chance.
struct ChanceMeasures {
  ChanceLevel Information;          ///< bits per spike
  Measured InformationAboveChance;  ///< the information minus its mean under shifts
  ChanceLevel Grid, Border, VectorLength, Speed, Stability;
};

/// One animal's behaviour in the loaded time, prepared for the measures of many cells.
class Arena {
 public:
  /// Throws CommandError if the map would have too many bins (see OccupancyMap).
  Arena(const Positions& positions, LoadedTime time, const MeasureSettings& settings);

  const Track& Path() const { return track_; }
  const Map& Occupancy() const { return occupancy_; }
  const LoadedTime& Time() const { return time_; }

  /// The rate map of a train; `spikes` in microseconds, in time order.
  Map RateOf(std::span<const int64_t> spikes) const;

  /// The tuning of a train to the direction.
  DirectionTuning DirectionOf(std::span<const int64_t> spikes) const;

  /// 0 if unknown.
  double PixelsPerCm() const { return pixelsPerCm_; }

  BehaviourMeasures MeasuresOf(std::span<const int64_t> spikes) const;

  /// Compares the measures with those of the train shifted circularly, settings.Chance.Shifts times. On all cores;
  /// takes time linear in the shifts. Throws Interrupted when `progress` asks for it.
  ChanceMeasures ChanceOf(std::span<const int64_t> spikes, const BehaviourMeasures& measures,
                          const Progress& progress = {}) const;

 private:
  /// The measures that are compared with chance.
  struct Compared {
    double Information, Grid, Border, VectorLength, Speed, Stability;
  };
  Compared ComparedAt(std::span<const int64_t> samples) const;
  SpikeMap CountsOf(std::span<const int64_t> samples) const;
  Measured DirectionStability(Stability::Split split, std::span<const int64_t> samples) const;

  LoadedTime time_;
  MeasureSettings settings_;
  double pixelsPerCm_;
  Track track_;
  Map occupancy_, smooth_;
  std::vector<int32_t> bins_;
  GridAnalysis grid_;
  DirectedSamples directed_;
  SpeedAnalysis speed_;
  Stability halves_, minutes_;
};

}  // namespace pallomir
