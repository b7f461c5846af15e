#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pallomir {

class FileReader;

/// Layout of a row of a parameter file (little-endian): the stamp, u64 microseconds, at 0; parameter j, f32, at 8 + 4j.
inline constexpr size_t kRowBytes = 544;
inline constexpr size_t kStampBytes = 8;

/// True when the text after the last "." of a path is "parms", letter for letter.
bool IsParameterFileName(std::string_view path);

/// The length of the header before the rows, or -1 when the file is not a parameter file. Our own header counts first.
/// Then come 16384 bytes when the file begins with "#", each line end within its leading printable text (longest
/// first), and no header: the first of them behind which there are whole rows only, else the first of them. Behind a
/// header the stamps of the first rows have to make sense (below 1e17, not all zero); a file of one of the first two
/// headers and nothing else holds no rows.
long ParameterHeaderLength(FileReader& file);

/// Number of rows behind a header: (length - header) / 544, rounded to nearest, halves to even.
int64_t RowCount(uint64_t fileLength, long headerLength);

}  // namespace pallomir
