#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "components/angle_convention.h"
#include "session/world.h"

namespace pallomir {

inline constexpr double kNotKnown = std::numeric_limits<double>::quiet_NaN();

/// Stamps of position and spike files lie within this, in microseconds, on either side of 0.
inline constexpr int64_t kFarthestStamp = 1'000'000'000'000'000'000;
inline bool IsStamp(double microseconds) {
  return std::abs(microseconds) <= static_cast<double>(kFarthestStamp);
}

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

/// Reads a position file of any of three kinds, told apart by content:
/// - our own (Pos.p): a text header, perhaps a line "PixelsPerCm,4", then "timestamp,x,y,angle"; the header tells how
///   angles are counted, or they are kTextAngles;
/// - the acquisition system's video file: a header of 16384 bytes, which may be absent, then records of 1828 bytes,
///   little-endian: stamp u64 at 6, x, y and angle i32 at 1616, 1620 and 1624; a piece of a record at the end is left
///   out; angles are kVideoAngles;
/// - plain text: "time x y" or "time x y angle" a line, microseconds, pixels and degrees, apart by commas, semicolons,
///   tabs or blanks; angles are kTextAngles; lines beginning with "#" or "%" and a first line of column names are
///   skipped.
///
/// Lost is x = y = 0, and what is not a number. A direction outside 0 to 360 is not known, nor is that of a lost sample
/// or any in a file whose directions are all 0. Throws CommandError when the file cannot be read, or when most of it is
/// something else; Interrupted when the user stops it.
Positions ReadPositions(World& world, std::string_view path);

}  // namespace pallomir
