#include "support/parameter_files.h"

#include "pallomir/files/bytes.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/files/raw_header.h"

namespace pallomir {

std::vector<FileRow> NumberedRows(int count) {
  std::vector<FileRow> rows(static_cast<size_t>(count));
  for (int r = 0; r < count; ++r) {
    rows[r].Stamp = 1'000'000 + 1000 * static_cast<uint64_t>(r);
    for (int p = 0; p < kParameters; ++p) rows[r].Values[p] = static_cast<float>(1000 * r + p);
  }
  return rows;
}

std::string BytesOf(const std::vector<FileRow>& rows) {
  std::string bytes(rows.size() * kRowBytes, '\0');
  auto* next = reinterpret_cast<unsigned char*>(bytes.data());
  for (const FileRow& row : rows) {
    StoreLittleEndian(next, row.Stamp);
    for (int p = 0; p < kParameters; ++p) StoreLittleEndian(next + kStampBytes + 4 * p, row.Values[p]);
    next += kRowBytes;
  }
  return bytes;
}

std::string AcquisitionHeader(const std::vector<std::pair<std::string, std::string>>& lines) {
  return MakeRawHeader("Data File Header", lines);
}

}  // namespace pallomir
