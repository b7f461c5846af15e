#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pallomir/science/behaviour/angle_convention.h"
#include "pallomir/science/times.h"

namespace pallomir {

/// The animal's positions, as columns in time order; samples with equal stamps keep their order in the file.
struct Positions {
  std::string Name;           ///< of the file, without folders
  std::vector<int64_t> Time;  ///< microseconds
  std::vector<double> X;      ///< pixels; NaN where the animal was lost
  std::vector<double> Y;
  std::vector<double> Direction;  ///< degrees, 0 up to 360, as HeadingOf() returns them; NaN where unknown
  AngleConvention Angles;         ///< the convention of the file's angles
  bool HasDirection = false;      ///< at least one sample has a direction
  double PixelsPerCm = 0;         ///< 0 if unknown
  int64_t Disordered = 0;         ///< samples earlier than their predecessor in the file; they have been sorted
  int64_t Unreadable = 0;         ///< lines or records that are not samples; skipped
};

/// The content of one line or frame.
struct PositionSample {
  int64_t Time;
  double X, Y, Direction;
};

/// Appends a sample. A lost position, or an unknown direction, becomes NaN; other directions stay as recorded.
void AppendSample(Positions& positions, const PositionSample& sample);

/// Sorts the samples by time and drops the directions if the tracker did not see the head, when it writes only zeros.
/// Other directions stay as recorded.
void RepairSamples(Positions& positions);

/// Sets all directions to unknown.
void ForgetDirections(Positions& positions);

/// Converts recorded angles to directions, by `positions.Angles`.
void TurnAngles(Positions& positions);

}  // namespace pallomir
