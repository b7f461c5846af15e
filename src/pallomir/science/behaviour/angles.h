#pragma once

#include <cmath>
#include <numbers>

namespace pallomir {

/// The direction of a vector in degrees, 0 up to 360: 0 to the right, 90 upward.
inline double DegreesOf(double right, double up) {
  const double degrees = std::atan2(up, right) * 180 / std::numbers::pi;
  const double turned = degrees < 0 ? degrees + 360 : degrees;
  return turned < 360 ? turned : 0;  // a negative angle too close to 0 rounds to 360
}

}  // namespace pallomir
