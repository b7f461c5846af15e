#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pallomir/session/parameter_catalogue.h"

namespace pallomir {

/// A row of a parameter file.
struct FileRow {
  uint64_t Stamp = 0;
  std::array<float, kParameters> Values{};
};

/// `count` rows that differ: row r has the timestamp 1000000 + 1000 r, and parameter p the value 1000 r + p.
std::vector<FileRow> NumberedRows(int count);

/// The rows as bytes of a file.
std::string BytesOf(const std::vector<FileRow>& rows);

/// The 16384 bytes that the acquisition system puts before its records, with the `-key value` lines.
std::string AcquisitionHeader(const std::vector<std::pair<std::string, std::string>>& lines = {});

}  // namespace pallomir
