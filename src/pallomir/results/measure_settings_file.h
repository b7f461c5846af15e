#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "pallomir/files/text_header.h"
#include "pallomir/science/measure_settings.h"

namespace pallomir {

/// The name of the settings file, beside a recording.
inline constexpr const char* kMeasureSettingsFile = "MeasureSettings";

/// The settings in the file in `folder`, or else in the folder above it, or else the defaults. The file has a line
/// "BinCm 2.5" for each setting that differs from its default, "none" for a limit that nothing exceeds; empty lines and
/// those beginning with "#" are skipped. Throws CommandError naming a line that is not a setting, or whose number it
/// cannot have.
MeasureSettings ReadMeasureSettings(const std::filesystem::path& folder);

/// Such lines for all settings, as names and values.
std::vector<HeaderEntry> SettingEntries(const MeasureSettings& settings);

/// Only for the settings of maps and directions that differ from their defaults: what a result file says in its header.
std::vector<HeaderEntry> UnusualEntries(const MeasureSettings& settings);

}  // namespace pallomir
