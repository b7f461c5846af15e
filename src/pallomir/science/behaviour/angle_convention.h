#pragma once

namespace pallomir {

/// How a tracker measures head angles. Conventions differ between trackers and are not stored in their files.
struct AngleConvention {
  double Zero = 90;       ///< degrees from +x towards +y at which the angle is 0
  bool Clockwise = true;  ///< angles grow from +y towards +x; otherwise from +x towards +y
  bool YUp = false;       ///< +y of the angles points up in the image, opposite to +y of the positions

  bool operator==(const AngleConvention&) const = default;
};

/// Raw video files: clockwise from the positive y axis, as documented by the acquisition system's maker; the head
/// points to (x, y) = (sin a, cos a).
inline constexpr AngleConvention kVideoAngles{90, true, false};

/// Text files that do not state a convention: 0 to the right, counter-clockwise as the camera sees the animal.
inline constexpr AngleConvention kTextAngles{0, false, true};

/// Head direction in degrees, 0 up to 360, as maps and polar plots draw it: 0 to the right (+x), counter-clockwise as
/// the camera sees it (90 is towards -y).
double HeadingOf(double angle, const AngleConvention& convention);

/// The angle modulo 360, in degrees, 0 up to 360.
double WholeTurnsOff(double degrees);

}  // namespace pallomir
