#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/temporary_folder.h"

namespace pallomir {

/// A frame of the acquisition system's video file.
std::string VideoFrame(uint64_t stamp, int32_t x, int32_t y, int32_t angle = 90);

/// The files that the cluster file writer leaves for the analyses: "cl-tmp" with the range, which may be typed with
/// decimals, and "ttmp" with the timestamps.
struct AnalysisFiles {
  std::string Cluster;
  std::string Time;
};
AnalysisFiles PutSpikes(const TemporaryFolder& folder, std::pair<double, double> range,
                        const std::vector<int64_t>& spikes);

}  // namespace pallomir
