#pragma once

#include <cstdint>
#include <string>

#include "pallomir/files/progress.h"

namespace pallomir {

inline constexpr int64_t kMostEvents = 1'000'000;

/// An events file of the acquisition system as text, one line a record: the stamp in microseconds, two blanks and the
/// printable characters of the event string, in the order of the file.
///
/// An optional header of 16384 bytes ("#" first), then records of 184 bytes:
///   6   u64      stamp, microseconds, little-endian
///   56  128 x u8 event string
/// Records 0..N are listed, N = (length - 16384) / 184 rounded: one more than the file holds, which lists as stamp 0,
/// and in a file without header not the last ones. With `filter`, TTL inputs and AD errors are left out. Of more than
/// kMostEvents the first ones are listed, and a line that says so. Throws CommandError when the file cannot be read,
/// Interrupted when the user stops it.
std::string EventsListing(const std::string& path, bool filter, const Progress& progress = {});

}  // namespace pallomir
