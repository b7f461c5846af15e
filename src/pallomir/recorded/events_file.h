#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "pallomir/files/progress.h"

namespace pallomir {

inline constexpr int64_t kMostEvents = 1'000'000;

/// An events file of the acquisition system as text, one line per record, in file order: the stamp in microseconds, two
/// blanks and the printable characters of the event string.
///
/// An optional header of 16384 bytes ("#" first), then records of 184 bytes:
///   6   u64      stamp, microseconds, little-endian
///   56  128 x u8 event string
/// Lists records 0..N with N = (length - 16384) / 184 rounded: one more than the file has, which is listed with stamp
/// 0; in a file without a header the last ones are missing. With `filter`, TTL inputs and AD errors are left out. Only
/// the first kMostEvents are listed, followed by a line that says so. Throws CommandError if the file cannot be read,
/// Interrupted when the user stops it.
std::string EventsListing(const std::filesystem::path& path, bool filter, const Progress& progress = {});

}  // namespace pallomir
