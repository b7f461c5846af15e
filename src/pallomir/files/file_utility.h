#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

/// Helpers for files and their headers.
namespace pallomir::FileUtility {

/// True if the file exists and is not a folder.
bool FileExists(const std::filesystem::path& path);

/// The text after the last "." of a path, without the dot; empty if there is no dot.
std::string GetExtension(const std::filesystem::path& path);

/// A path without its extension: without the last "." of the file name and what follows it.
std::filesystem::path RemoveExtension(const std::filesystem::path& path);

/// Size in bytes. Throws CommandError if the file cannot be opened.
uint64_t FileLength(const std::filesystem::path& path);

/// Length in bytes of the header of a parameter file (extension "parms") or of one of our text files, or -1 if the file
/// cannot be used.
long GetHeaderLength(const std::filesystem::path& path);

/// Renames a file and replaces any file `to` atomically. Returns false if `from` does not exist. Throws CommandError if
/// renaming fails; both files are then unchanged.
bool RenameFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Copies an existing file, all or nothing, to a backup beside it with the suffix ".bak"; the file itself is unchanged.
/// An existing backup is replaced only if `worthKeeping`, called with the content, returns true: an unreadable or empty
/// file must not replace an earlier backup. Throws CommandError if the copy fails.
void SafeguardFile(const std::filesystem::path& path,
                   const std::function<bool(std::string_view content)>& worthKeeping);

}  // namespace pallomir::FileUtility
