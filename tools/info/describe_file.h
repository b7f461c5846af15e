#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/files/raw_layout.h"
#include "tools/progress_bar.h"

namespace pallomir {

/// Describes a file in lines for the user: its kind, size, time span and oddities. The kind is determined by the
/// extension, ignoring case, or if that is unknown by the header: spike, events and video files (.Ntt, .Nse, .Nev,
/// .Nvt), parameter files, waveform files, Pos.p, VideoSampling, and our text files.
///
/// Throws CommandError if the file cannot be read or is of no known kind.
std::string DescribeFile(const std::filesystem::path& path, ProgressBar& progress);

// One per kind; called by DescribeFile.
std::string DescribeRaw(const std::filesystem::path& path, const RawLayout& layout, ProgressBar& progress);
std::string DescribeParameters(const std::filesystem::path& path, ProgressBar& progress);
std::string DescribeWaveforms(const std::filesystem::path& path, ProgressBar& progress);
std::string DescribePositions(const std::filesystem::path& path);

}  // namespace pallomir
