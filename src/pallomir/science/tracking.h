#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "pallomir/science/positions.h"

namespace pallomir {

inline constexpr int64_t kLongestHold = 100'000;    ///< microseconds that a sample stands for at most
inline constexpr int64_t kLongestBridge = 250'000;  ///< microseconds over which a lost run is interpolated at most
inline constexpr int64_t kTravelReach = 100'000;    ///< microseconds before and after a sample that tell its travel
inline constexpr double kSlowestTravelCm = 5;       ///< a second; slower than that has no direction
inline constexpr double kSlowestTravelPixels = 20;  ///< a second, where pixels per cm are not known

/// The tracked samples within a time range, as columns in order of time, and what each stands for.
struct Track {
  std::vector<int64_t> Time;  ///< microseconds
  /// Microseconds until the next sample, at most kLongestHold; of the last sample, the median of the intervals between
  /// the samples, and 0 when it is the only one.
  std::vector<double> Hold;
  std::vector<double> X;  ///< pixels; NaN where the place is not known
  std::vector<double> Y;
  std::vector<double> Direction;  ///< degrees, 0 up to 360; NaN where it is not known
  std::vector<bool> Seen;         ///< the tracker saw the animal: the place is not interpolated
  int64_t Lost = 0;               ///< samples without a place
  int64_t Interpolated = 0;       ///< samples of lost runs that have been placed on a line
};

/// The samples of `positions` within `range`. A run of lost samples is laid on the line between the good samples that
/// bracket it when these are at most kLongestBridge apart, in proportion to time; its directions stay unknown.
Track TrackWithin(const Positions& positions, const TimeRange& range);

struct Place {
  double X, Y;  ///< pixels
};

/// Where the animal was at any time, by the samples that saw it: on the line between the one before and the one after,
/// in proportion to time, when these are at most kLongestBridge apart.
class SeenPlaces {
 public:
  explicit SeenPlaces(const Positions& positions);
  /// Nothing where that is not known.
  std::optional<Place> At(int64_t time) const;

 private:
  struct Seen {
    int64_t Time;
    Place At;
  };
  std::vector<Seen> seen_;
};

/// In microseconds, of times in order; 0 when there are fewer than two.
double MedianInterval(const std::vector<int64_t>& time);

/// Which way the animal went at each sample, in degrees, 0 to the right (+x), counter-clockwise as the
/// camera sees it (90 is towards -y): from the first to the last sample seen
/// within kTravelReach. NaN where it was slower than `slowest` pixels a second, or not seen.
std::vector<double> DirectionsOfTravel(const Track& track, double slowest);

/// For each spike, in order of time, the sample i with Time[i] <= spike < Time[i] + Hold[i], or -1.
std::vector<int64_t> SamplesOfSpikes(const Track& track, std::span<const int64_t> spikes);

}  // namespace pallomir
