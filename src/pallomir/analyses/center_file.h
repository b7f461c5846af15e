#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The centre of the maze, in the units of the parameters that it was clicked in: pixels.
struct CenterPoint {
  float X = 0;
  float Y = 0;
};

/// The name that the report looks for.
inline constexpr std::string_view kCenterFileName = "CenterCoords";

/// A center file by its name as typed: in the parent of the data directory.
std::string CenterFilePath(const Session& session, std::string_view name = kCenterFileName);

/// Writes the clicked point to the file (one line, "X,Y"), all or nothing, and says so in the log. Throws CommandError
/// when the name is empty or the file cannot be written.
void WriteCenterFile(const Session& session, World& world, std::string_view name, CenterPoint center);

/// The point in a center file, or nothing when there is no such file. Throws CommandError when it holds anything but
/// two numbers.
std::optional<CenterPoint> ReadCenterFile(std::string_view path);

}  // namespace pallomir
