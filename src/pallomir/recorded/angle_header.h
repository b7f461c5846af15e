#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/text_header.h"
#include "pallomir/science/angle_convention.h"

// How the header of a position file, and who types it, names a convention of angles.

namespace pallomir {

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
