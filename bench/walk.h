#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pallomir/recorded/position_file.h"

namespace pallomir::bench {

/// What the analyses are measured on: 36,000 positions of a walk in a box of 1 m, 20 minutes at 30 Hz and 4 pixels a
/// cm, and 100,000 spikes that are evenly spread.
struct Walk {
  Positions Places;
  std::vector<int64_t> Spikes;
};
const Walk& WalkInBox();

/// A file beside the recording. "cl-tmp", "ttmp" and "Pos.p" hold the walk, as the cluster file writer and the import
/// leave it; others are the analyses' own.
std::string WalkFile(const std::string& name);

}  // namespace pallomir::bench
