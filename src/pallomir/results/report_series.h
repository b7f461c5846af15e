#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

#include "pallomir/science/xy.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The spikes in a cluster file, as columns in time order.
struct ClusterLines {
  std::vector<int64_t> Time;  ///< microseconds
  /// The highest of the spike's peaks, in raw counts. The file has the peaks of channels 1 to 8 and 10 to 17 but not
  /// the parameter MaxHeight (peak minus valley); a channel whose peak is 0 in every line was not recorded. NaN if a
  /// peak is not finite.
  std::vector<float> MaxHeight;
  int64_t WithoutHeight = 0;  ///< spikes with NaN as MaxHeight
  /// Time range of the file, microseconds; spikes outside are skipped. If either end is implausible, both are narrowed
  /// to the spikes.
  int64_t First = 0;
  int64_t Last = 0;
};

/// Reads a cluster file: an optional text header, start and end of the time range, then a line per spike: the record
/// number, the peaks of channels 1 to 8 and 10 to 17, the stamp. Spikes with an implausible stamp are skipped. Throws
/// CommandError naming any other line, Interrupted when the user stops it.
ClusterLines ReadClusterLines(World& world, const std::filesystem::path& clusterFile);

/// The direction from `centre` to (x, y) in degrees, 0 up to 360: 0 to the right (+x), counter-clockwise as the camera
/// sees it: 90 is towards -y, which is up in the video image. NaN at the centre itself and for NaN coordinates.
double AngleAbout(const Position& centre, double x, double y);

/// The centre of the bounding box of the tracked positions; NaN without any.
Position MiddleOfTrackedArea(std::span<const double> x, std::span<const double> y);

/// The animal's position at each of a cluster's spikes; NaN where unknown.
struct PositionSeries {
  std::vector<double> X;
  std::vector<double> Y;
  std::vector<double> Angle;  ///< about the centre, see AngleAbout
};

/// `samples` has the sample index of each spike, or -1; (x, y) are the positions of the samples.
PositionSeries PositionsOfSpikes(std::span<const int64_t> samples, std::span<const double> x, std::span<const double> y,
                                 const Position& centre);

}  // namespace pallomir
