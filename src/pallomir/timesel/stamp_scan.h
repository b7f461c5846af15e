#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "pallomir/files/file_reader.h"
#include "pallomir/session/session.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// Size of a file's records and of the header before them, in bytes.
struct RecordGeometry {
  size_t RecordBytes;
  long HeaderLength;
};

/// By the extension, "parms" or "Ntt"; empty for any other, or if the header cannot be read.
std::optional<RecordGeometry> GeometryOf(const std::filesystem::path& path);

/// Reads the stamps of all records in order, in blocks: `visit` gets the number of a block's first record and the
/// block's stamps in microseconds, and returns true to end the scan. Throws CommandError if the file ends before its
/// last record, Interrupted when the user stops it.
void ScanStamps(FileReader& file, const Session& session, World& world, const RecordGeometry& geometry,
                const std::function<bool(int64_t first, std::span<const double> stamps)>& visit);

}  // namespace pallomir
