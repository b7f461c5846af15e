#include "pallomir/files/parameter_header.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "pallomir/files/bytes.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/file_utility.h"
#include "pallomir/files/raw_layout.h"
#include "pallomir/files/text_header.h"

namespace pallomir {

namespace {

constexpr size_t kRowsLookedAt = 64;
constexpr auto kAcquisitionHeaderLength = static_cast<long>(kRawHeaderLength);

bool RowsMakeSense(std::string_view beginning, size_t header, uint64_t fileLength) {
  const int64_t rows = RowCount(fileLength, static_cast<long>(header));
  bool allZero = true;
  for (size_t row = 0; row < kRowsLookedAt && static_cast<int64_t>(row) < rows; ++row) {
    const size_t offset = header + row * kRowBytes;
    if (offset + kStampBytes > beginning.size()) break;
    const auto stamp = LoadLittleEndian<uint64_t>(reinterpret_cast<const unsigned char*>(beginning.data()) + offset);
    if (stamp >= kStampLimit) return false;
    allZero = allZero && stamp == 0;
  }
  return !allZero;
}

size_t PrintableLength(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(),
                                [](char c) { return !((c >= 32 && c <= 126) || c == '\t' || c == '\r' || c == '\n'); });
  return static_cast<size_t>(end - text.begin());
}

/// The possible lengths of a header other than our own, likeliest first.
std::vector<size_t> PossibleLengths(std::string_view beginning) {
  std::vector<size_t> lengths;
  if (beginning.starts_with('#')) lengths.push_back(kRawHeaderLength);
  for (size_t length = std::min(PrintableLength(beginning), kTextHeaderLimit); length > 0; --length)
    if (beginning[length - 1] == '\n') lengths.push_back(length);
  lengths.push_back(0);
  return lengths;
}

}  // namespace

bool IsParameterFileName(const std::filesystem::path& path) {
  return FileUtility::GetExtension(path) == "parms";
}

long ParameterHeaderLength(FileReader& file) {
  std::string beginning(kTextHeaderLimit + kRowsLookedAt * kRowBytes, '\0');
  beginning.resize(file.ReadUpTo(0, beginning.data(), beginning.size()));
  const auto fits = [&](size_t header) { return RowsMakeSense(beginning, header, file.Length()); };
  const auto isAll = [&](long header) { return file.Length() == static_cast<uint64_t>(header); };

  if (const long own = TextHeaderLength(beginning); own >= 0 && (isAll(own) || fits(own))) return own;
  if (beginning.starts_with('#') && isAll(kAcquisitionHeaderLength)) return kAcquisitionHeaderLength;
  long withPieceAtEnd = -1;
  for (const size_t length : PossibleLengths(beginning)) {
    if (!fits(length)) continue;
    // A first stamp whose low byte equals a line feed looks like one more line.
    if ((file.Length() - length) % kRowBytes == 0) return static_cast<long>(length);
    if (withPieceAtEnd < 0) withPieceAtEnd = static_cast<long>(length);
  }
  return withPieceAtEnd;
}

int64_t RowCount(uint64_t fileLength, long headerLength) {
  return std::llrint((static_cast<double>(fileLength) - static_cast<double>(headerLength)) / kRowBytes);
}

}  // namespace pallomir
