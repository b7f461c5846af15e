#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/progress.h"
#include "pallomir/recorded/position_file.h"

namespace pallomir {

// The acquisition system's video file; files/raw_layout.h describes its frames.
inline constexpr size_t kFramesLookedAt = 64;

/// The offset of the first frame, judged by the beginning of a file (its header and kFramesLookedAt frames). Empty if
/// it is not a video file: its header has another record size, or its first frames are not plausible (stamps of 1e17 or
/// more or all 0, positions beyond 100000 pixels).
std::optional<size_t> VideoHeaderLength(std::string_view beginning, uint64_t fileLength);

/// Appends one frame; a frame whose stamp is beyond kFarthestStamp counts as unreadable instead.
void AppendFrame(Positions& positions, const unsigned char* record);

/// Appends all complete frames.
void ReadFrames(FileReader& file, size_t header, const Progress& progress, Positions& positions);

}  // namespace pallomir
