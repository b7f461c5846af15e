#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// Helpers for files and their headers. Paths are in the internal notation (see PlatformPath).
namespace pallomir::FileUtility {

/// True if the file exists and is not a folder.
bool FileExists(std::string_view path);

/// The text after the last "." of a path, without the dot; empty if there is no dot.
std::string GetExtension(std::string_view path);

/// A path without its extension: without the last "." of the file name and what follows it.
std::string RemoveExtension(std::string_view path);

/// Size in bytes. Throws CommandError if the file cannot be opened.
uint64_t FileLength(std::string_view path);

/// Length in bytes of the header of a parameter file (extension "parms") or of one of our text files, or -1 if the file
/// cannot be used.
long GetHeaderLength(std::string_view path);

/// Renames a file and replaces any file `to` atomically. Returns false if `from` does not exist. Throws CommandError if
/// renaming fails; both files are then unchanged.
bool RenameFile(std::string_view from, std::string_view to);

/// Copies an existing file, all or nothing, to a backup beside it with the suffix ".bak"; the file itself is unchanged.
/// An existing backup is replaced only if `worthKeeping`, called with the content, returns true: an unreadable or empty
/// file must not replace an earlier backup. Throws CommandError if the copy fails.
void SafeguardFile(std::string_view path, const std::function<bool(std::string_view content)>& worthKeeping);

}  // namespace pallomir::FileUtility
