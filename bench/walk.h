#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pallomir/recorded/position_file.h"

namespace pallomir::bench {

/// The data for the analyses: 36,000 positions of a walk in a box of 1 m, 20 minutes at 30 Hz and 4 pixels per cm, and
/// 100,000 evenly spread spikes.
struct Walk {
  Positions Samples;
  std::vector<int64_t> Spikes;
};
const Walk& WalkInBox();

/// The path of a file beside the recording. "cl-tmp", "ttmp" and "Pos.p" contain the walk, as written by the cluster
/// file writer and the import; other files are written by the analyses.
std::string WalkFile(const std::string& name);

}  // namespace pallomir::bench
