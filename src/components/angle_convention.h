#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/text_header.h"

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

/// "zero +y, clockwise", "zero 12.5 degrees, counter-clockwise, y up".
std::string ConventionText(const AngleConvention& convention);

/// The zero that "+x", "+y", "-x", "-y" or a number of degrees names, 0 up to 360.
std::optional<double> AngleZeroFromText(std::string_view text);

/// "+x", "+y", "-x", "-y" or the degrees.
std::string AngleZeroText(double zero);

/// The lines of a position file's header that tell its convention.
std::vector<HeaderEntry> HeaderEntries(const AngleConvention& convention);

/// What a header tells, kTextAngles when it says nothing. Throws CommandError, naming `file`, when it cannot be
/// understood.
AngleConvention ConventionFrom(std::string_view header, std::string_view file);

}  // namespace pallomir
