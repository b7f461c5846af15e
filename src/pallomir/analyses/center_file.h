#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The centre of the maze, in the units of the parameters in which it was clicked: pixels.
struct CenterPoint {
  float X = 0;
  float Y = 0;
};

/// The name that the report looks for.
inline constexpr std::string_view kCenterFileName = "CenterCoords";

/// The path of a center file by its name as typed: in the parent of the data directory.
std::string CenterFilePath(const Session& session, std::string_view name = kCenterFileName);

/// Writes the clicked point to the file (one line, "X,Y"), all or nothing, and logs it. Throws CommandError if the name
/// is empty or the file cannot be written.
void WriteCenterFile(const Session& session, World& world, std::string_view name, CenterPoint center);

/// The point in a center file; empty if the file does not exist. Throws CommandError unless it contains exactly two
/// numbers.
std::optional<CenterPoint> ReadCenterFile(std::string_view path);

}  // namespace pallomir
