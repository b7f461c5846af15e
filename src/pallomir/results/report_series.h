#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "pallomir/session/world.h"

namespace pallomir {

/// The spikes that a cluster file lists, as columns in order of time.
struct ClusterLines {
  std::vector<int64_t> Time;  ///< microseconds
  /// The highest of the spike's peaks, raw counts. The file has the peaks of channels 1 to 8 and 10 to 17 but not the
  /// parameter MaxHeight (peak minus valley); channels whose peak is 0 in every line were not recorded. NaN where a
  /// peak is not finite.
  std::vector<float> MaxHeight;
  int64_t WithoutHeight = 0;  ///< spikes with such a peak
  int64_t First = 0;          ///< time range of the file, microseconds; spikes outside of it are left out. An end
                              ///< that is no time of a recording is that of the spikes
  int64_t Last = 0;
};

/// Reads a cluster file: a text header, which may be absent, start and end of the time range, then a line a spike: the
/// record number, the peaks of channels 1 to 8 and 10 to 17, the stamp. Spikes whose stamp makes no sense are left out.
/// Throws CommandError naming the line that is something else, Interrupted when the user stops it.
ClusterLines ReadClusterLines(World& world, std::string_view clusterFile);

/// A place in the units of the tracker, pixels: x to the right and y downward, as on the video picture.
struct TrackedPoint {
  double X = 0;
  double Y = 0;
};

/// The direction of (x, y) from `centre`, degrees from 0 up to 360: 0 to the right (+x), counter-clockwise as the
/// camera sees it: 90 is towards -y, which is upward on the video picture. NaN at the centre itself, and where a
/// coordinate is.
double AngleAbout(const TrackedPoint& centre, double x, double y);

/// The middle between the outermost tracked places; NaN where nothing was tracked.
TrackedPoint MiddleOfTrackedArea(std::span<const double> x, std::span<const double> y);

/// Where the animal was at each of a cluster's spikes; NaN where that is not known.
struct PlaceSeries {
  std::vector<double> X;
  std::vector<double> Y;
  std::vector<double> Angle;  ///< about the centre, see AngleAbout
};

/// `samples` names the sample of each spike, or is -1; (x, y) are the samples' places.
PlaceSeries PlacesOfSpikes(std::span<const int64_t> samples, std::span<const double> x, std::span<const double> y,
                           const TrackedPoint& centre);

}  // namespace pallomir
