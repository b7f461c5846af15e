#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace pallomir {

/// When a file was written, as local date and time in the format of strftime().
std::string LocalTime(std::filesystem::file_time_type time, const char* format);

/// Gives a file a further name, which nothing has and nothing writes to, so that its place is free: its own and when it
/// was written, "cbfile.exit.20261122-021015.txt". Returns the path. Throws CommandError when that fails; the file is
/// then as it was.
std::string SetAside(std::string_view path);

}  // namespace pallomir
