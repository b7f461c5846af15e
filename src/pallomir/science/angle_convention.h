#pragma once

namespace pallomir {

/// How a tracker counts the angle of the head. Trackers differ, and their files do not say.
struct AngleConvention {
  double Zero = 90;       ///< degrees from +x towards +y to where an angle of 0 points
  bool Clockwise = true;  ///< angles grow from +y towards +x; otherwise from +x towards +y
  bool YUp = false;       ///< the y of the angles grows upward in the picture, against that of the places

  bool operator==(const AngleConvention&) const = default;
};

/// Of raw video files: clockwise from the positive Y axis, as the acquisition system's maker documents them, so that
/// the head points to (x, y) = (sin a, cos a).
inline constexpr AngleConvention kVideoAngles{90, true, false};

/// Of texts that do not tell: 0 to the right and counter-clockwise as the camera sees the animal.
inline constexpr AngleConvention kTextAngles{0, false, true};

/// Where the head points, in degrees, 0 up to 360, as maps and polar plots are drawn: 0 to the right (+x),
/// counter-clockwise as the camera sees it (90 is towards -y).
double HeadingOf(double angle, const AngleConvention& convention);

/// The same direction, 0 up to 360 degrees.
double WholeTurnsOff(double degrees);

}  // namespace pallomir
