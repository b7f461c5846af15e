#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/progress.h"
#include "pallomir/recorded/position_file.h"

namespace pallomir {

// The acquisition system's video file; its frames are as files/raw_layout.h has them.
inline constexpr size_t kFramesLookedAt = 64;

/// Where the frames begin, judged by the beginning of a file (its header and kFramesLookedAt frames); nothing when it
/// is no video file's: its header names another size of records, or its first frames make no sense (stamps of 1e17 and
/// more or all 0, places beyond 100000 pixels).
std::optional<size_t> VideoHeaderLength(std::string_view beginning, uint64_t fileLength);

/// Appends a frame's record; one whose stamp is beyond kFarthestStamp counts as unreadable instead.
void AppendFrame(Positions& positions, const unsigned char* record);

/// Appends all whole frames.
void ReadFrames(FileReader& file, size_t header, const Progress& progress, Positions& positions);

}  // namespace pallomir
