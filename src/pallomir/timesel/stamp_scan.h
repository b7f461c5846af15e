#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "pallomir/files/file_reader.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Where the records of a file lie.
struct RecordGeometry {
  size_t RecordBytes;
  long Header;
};

/// By the file name's extension, "parms" or "Ntt"; nothing for another one or an unreadable header.
std::optional<RecordGeometry> GeometryOf(const std::string& path);

/// Goes through the stamps of all records in order, in blocks: `visit` gets the number of a block's first record and
/// the block's stamps in microseconds, and returns true to end the scan. Throws CommandError where the file
/// ends before its last record, Interrupted when the user stops it.
void ScanStamps(FileReader& file, const Session& session, World& world, const RecordGeometry& geometry,
                const std::function<bool(int64_t first, std::span<const double> stamps)>& visit);

}  // namespace pallomir
