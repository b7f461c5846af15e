#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pallomir/science/behaviour/positions.h"
#include "pallomir/science/loaded_time.h"
#include "pallomir/science/measure_settings.h"
#include "pallomir/science/xy.h"

namespace pallomir {

inline constexpr int64_t kLongestHold = 100'000;    ///< microseconds for which a sample counts at most
inline constexpr int64_t kLongestBridge = 250'000;  ///< microseconds of the longest gap that is interpolated
inline constexpr int64_t kTravelReach = 100'000;    ///< microseconds around each sample that give its travel direction
inline constexpr double kSlowestTravelCm = 5;       ///< cm per second; slower movement has no direction
inline constexpr double kSlowestTravelPixels = 20;  ///< pixels per second, if pixels per cm are unknown

/// In pixels per second.
inline double SlowestTravel(double pixelsPerCm) {
  return pixelsPerCm > 0 ? kSlowestTravelCm * pixelsPerCm : kSlowestTravelPixels;
}

/// The tracking samples within a time range, as columns in time order, with the time for which each counts.
struct Track {
  std::vector<int64_t> Time;  ///< microseconds
  /// Microseconds until the next sample, at most kLongestHold; for the last sample the median interval between samples,
  /// or 0 if it is the only one.
  std::vector<double> Hold;
  std::vector<double> X;  ///< pixels; NaN where the position is unknown
  std::vector<double> Y;
  std::vector<double> Direction;  ///< degrees, 0 up to 360; NaN where unknown
  std::vector<double> Speed;      ///< cm per second, as SpeedsOf() returns it; only TrackOver() sets it
  std::vector<bool> Seen;         ///< the tracker saw the animal: the position is not interpolated
  int64_t Lost = 0;               ///< samples without a position
  int64_t Interpolated = 0;       ///< lost samples with an interpolated position
};

/// The samples of `positions` within `range`. Lost samples are interpolated linearly in time between the good samples
/// around them if these are at most kLongestBridge apart; their directions stay unknown.
Track TrackWithin(const Positions& positions, const TimeRange& range);

/// The samples in all parts of the loaded time, one part after another, by the settings: positions that the animal
/// could not have reached are lost, and samples at other speeds than wanted lose position and direction. Directions are
/// those of travel if the positions have none.
Track TrackOver(const Positions& positions, const LoadedTime& time, const MapSettings& settings = {});

/// cm per second at each sample: from the first to the last seen sample within kTravelReach; NaN where the animal was
/// not seen, or only once. `pixelsPerCm` is 0 if unknown.
std::vector<double> SpeedsOf(const Track& track, double pixelsPerCm);

/// The animal's position at any time: interpolated linearly in time between the seen samples before and after, if these
/// are at most kLongestBridge apart.
class SeenPositions {
 public:
  explicit SeenPositions(const Positions& positions);
  /// Empty where the position is unknown.
  std::optional<Position> At(int64_t time) const;

 private:
  struct Seen {
    int64_t Time;
    Position At;
  };
  std::vector<Seen> seen_;
};

/// In microseconds, for times in order; 0 for fewer than two.
double MedianInterval(const std::vector<int64_t>& time);

/// The direction of travel at each sample, in degrees, 0 to the right (+x), counter-clockwise as the camera sees it (90
/// is towards -y): from the first to the last seen sample within kTravelReach. NaN if the animal was slower than
/// `slowest` pixels per second, or not seen.
std::vector<double> DirectionsOfTravel(const Track& track, double slowest);

/// For each spike, in time order, the sample i with Time[i] <= spike < Time[i] + Hold[i], or -1.
std::vector<int64_t> SamplesOfSpikes(const Track& track, std::span<const int64_t> spikes);

}  // namespace pallomir
