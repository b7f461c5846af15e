#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "pallomir/science/xy.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The name that the report looks for.
inline constexpr std::string_view kCenterFileName = "CenterCoords";

/// The path of a center file by its name as typed: in the parent of the data directory.
std::filesystem::path CenterFilePath(const Session& session, std::string_view name = kCenterFileName);

/// Writes the centre of the maze, clicked in the units of two parameters (pixels), to the file (one line, "X,Y"), all
/// or nothing, and logs it. Throws CommandError if the name is empty or the file cannot be written.
void WriteCenterFile(const Session& session, World& world, std::string_view name, XY<float> center);

/// The point in a center file; empty if the file does not exist. Throws CommandError unless it contains exactly two
/// numbers.
std::optional<XY<float>> ReadCenterFile(const std::filesystem::path& path);

}  // namespace pallomir
