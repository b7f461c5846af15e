#pragma once

#include <cstdint>
#include <vector>

#include "tools/sample/draws.h"

namespace pallomir {

inline constexpr double kBoxSize = 100;            ///< cm
inline constexpr double kTopSpeed = 30;            ///< cm/s
inline constexpr uint64_t kWalkInterval = 10'000;  ///< microseconds between the steps of a walk

/// The animal's position, in cm from the box's corner, heading, in turns from +x towards +y, and speed, in cm/s.
struct WalkStep {
  float X;
  float Y;
  float Heading;
  float Speed;
};

/// A rat's walk in a box of 1 m: its speed, between 5 and 30 cm/s, and its turning drift slowly; walls turn it round.
/// The head points in the direction of the body, give or take some degrees.
std::vector<WalkStep> WalkInBox(uint64_t microseconds, Draws draws);

}  // namespace pallomir
