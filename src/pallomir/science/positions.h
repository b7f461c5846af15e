#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pallomir/science/angle_convention.h"
#include "pallomir/science/times.h"

namespace pallomir {

/// Where the animal was, as columns in order of time; samples with equal stamps stand as in the file.
struct Positions {
  std::string Name;           ///< of the file, its last part
  std::vector<int64_t> Time;  ///< microseconds
  std::vector<double> X;      ///< pixels; NaN where the animal was lost
  std::vector<double> Y;
  std::vector<double> Direction;  ///< degrees, 0 up to 360, as HeadingOf() gives them; NaN where it is not known
  AngleConvention Angles;         ///< by which the file's angles were turned into directions
  bool HasDirection = false;      ///< some sample has one
  double PixelsPerCm = 0;         ///< 0 where it is not known
  int64_t Disordered = 0;         ///< samples earlier than the one before them in the file; they have been sorted
  int64_t Unreadable = 0;         ///< lines, or records, that are no samples; left out
};

/// What one line or frame tells.
struct PositionSample {
  int64_t Time;
  double X, Y, Direction;
};

/// Appends a sample, after judging whether the animal was lost and its direction is known, which stays as recorded.
void AppendSample(Positions& positions, const PositionSample& sample);

/// Sorts the samples by time, and takes away the directions of a tracker that did not see the head: it writes 0
/// throughout. What is known of directions stays as recorded.
void RepairSamples(Positions& positions);

/// Leaves no direction known.
void ForgetDirections(Positions& positions);

/// Turns recorded angles into directions, by `positions.Angles`.
void TurnAngles(Positions& positions);

}  // namespace pallomir
