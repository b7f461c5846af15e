#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/text_header.h"
#include "pallomir/science/behaviour/angle_convention.h"

// How the headers of position files, and the user's input, name an angle convention.

namespace pallomir {

/// "zero +y, clockwise", "zero 12.5 degrees, counter-clockwise, y up".
std::string ConventionText(const AngleConvention& convention);

/// The angle of the zero named by "+x", "+y", "-x", "-y" or a number of degrees, 0 up to 360; empty for other texts.
std::optional<double> AngleZeroFromText(std::string_view text);

/// "+x", "+y", "-x", "-y" or the number of degrees.
std::string AngleZeroText(double zero);

/// The lines of a position file's header that state its convention.
std::vector<HeaderEntry> HeaderEntries(const AngleConvention& convention);

/// The convention stated by a header; kTextAngles if there is none. Throws CommandError, naming `file`, if it is
/// invalid.
AngleConvention ConventionFrom(std::string_view header, const std::filesystem::path& file);

}  // namespace pallomir
