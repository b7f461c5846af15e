#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// What the system asks about files and their headers. Paths are in the system's own notation.
namespace pallomir::FileUtility {

/// True when the file (not a folder) is present.
bool FileExists(std::string_view path);

/// The text after the last "." of a path, without the dot; empty when there is none.
std::string GetExtension(std::string_view path);

/// A path without its extension: the last "." of its last part, and what follows, are gone.
std::string RemoveExtension(std::string_view path);

/// Size in bytes. Throws CommandError when the file cannot be opened.
uint64_t FileLength(std::string_view path);

/// Length in bytes of the header of a parameter file (extension "parms") or of one of our text files, or -1 when the
/// file cannot be used.
long GetHeaderLength(std::string_view path);

/// Gives a file another name, and takes the place of the file, if any, that had it: at every moment one of the two
/// stands under the new name. False when there is no file `from` (any more). Throws CommandError when that fails; both
/// are then as they were.
bool RenameFile(std::string_view from, std::string_view to);

/// Keeps a copy of an existing file beside it, under its name + ".bak", all or nothing; the file itself is untouched.
/// `worthKeeping` is asked about the content, in the caller's format: what cannot be read, or holds nothing, does not
/// displace an earlier copy. Throws CommandError when no copy can be made.
void SafeguardFile(std::string_view path, const std::function<bool(std::string_view content)>& worthKeeping);

}  // namespace pallomir::FileUtility
