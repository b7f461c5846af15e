#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tools/progress_bar.h"

namespace pallomir {

/// Which cut to measure, and where its files are. Paths that are empty are found beside the recording.
struct MeasureRequest {
  std::filesystem::path Recording;   ///< the parameter file
  std::filesystem::path Boundaries;  ///< the boundaries file
  std::filesystem::path Positions;   ///< Pos.p, one folder above the recording
  std::filesystem::path Out;         ///< of the two files, without extension: "measures" beside the recording
  std::optional<int64_t> From, To;   ///< records; the whole recording
  bool Chance = true;
};

/// Cuts a recording by a boundaries file, measures its clusters and writes the table. Returns lines about what was
/// done. Throws CommandError if a file cannot be used, Interrupted when the user stops it.
std::vector<std::string> MeasureRecording(const MeasureRequest& request, ProgressBar& bar);

}  // namespace pallomir
