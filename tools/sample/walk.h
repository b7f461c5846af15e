#pragma once

#include <cstdint>
#include <vector>

#include "tools/sample/draws.h"

namespace pallomir {

inline constexpr double kBoxSize = 100;            ///< cm
inline constexpr uint64_t kWalkInterval = 10'000;  ///< microseconds between the steps of a walk

/// Where the animal is, in cm from the box's corner, and which way it looks, in turns from +x towards +y.
struct WalkStep {
  float X;
  float Y;
  float Heading;
};

/// A rat's walk in a box of 1 m: speed between 5 and 30 cm/s and turning drift slowly, walls turn it round. The head
/// looks where the body goes, give or take some degrees.
std::vector<WalkStep> WalkInBox(uint64_t microseconds, Draws draws);

}  // namespace pallomir
