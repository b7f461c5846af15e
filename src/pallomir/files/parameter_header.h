#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

namespace pallomir {

class FileReader;

/// A row of a parameter file (little-endian): the stamp, u64 microseconds, at offset 0; parameter j, f32, at 8 + 4j.
inline constexpr size_t kRowBytes = 544;
inline constexpr size_t kStampBytes = 8;

/// True if the text after the last "." of a path is "parms" (case-sensitive).
bool IsParameterFileName(const std::filesystem::path& path);

/// The length of the header before the rows, or -1 if the file is not a parameter file. Our own header is tried first,
/// then 16384 bytes if the file begins with "#", then each line end within its leading printable text (longest first),
/// then no header. The stamps of the first rows after a header must be plausible (below 1e17, not all zero). The first
/// length followed by complete rows only wins, otherwise the first plausible one. A file that consists only of one of
/// the first two headers has no rows.
long ParameterHeaderLength(FileReader& file);

/// Number of rows after a header: (length - header) / 544, rounded to nearest, ties to even.
int64_t RowCount(uint64_t fileLength, long headerLength);

}  // namespace pallomir
