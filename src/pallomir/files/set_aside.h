#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace pallomir {

/// A file's time of last writing as local time, in the format of strftime().
std::string LocalTime(std::filesystem::file_time_type time, const char* format);

/// Renames a file to an unused name that contains its time of last writing, "cbfile.exit.20261122-021015.txt", which
/// frees its own name. Returns the new path. Throws CommandError on failure; the file is then unchanged.
std::filesystem::path SetAside(const std::filesystem::path& path);

}  // namespace pallomir
