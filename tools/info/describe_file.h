#pragma once

#include <string>
#include <string_view>

#include "pallomir/files/raw_layout.h"
#include "tools/progress_bar.h"

namespace pallomir {

/// What a file is, how much it holds, which time it spans and what is odd about it, in lines for the user. Told by the
/// extension in either case, and where that says nothing by the header: spike, events and video files (.Ntt, .Nse,
/// .Nev, .Nvt), parameter files, waveform files, Pos.p, VideoSampling, and our text files.
///
/// Throws CommandError when the file cannot be read or is none of these.
std::string DescribeFile(std::string_view path, ProgressBar& progress);

// One kind each; DescribeFile calls them.
std::string DescribeRaw(std::string_view path, const RawLayout& layout, ProgressBar& progress);
std::string DescribeParameters(std::string_view path, ProgressBar& progress);
std::string DescribeWaveforms(std::string_view path, ProgressBar& progress);
std::string DescribePositions(std::string_view path);

}  // namespace pallomir
