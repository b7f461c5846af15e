#pragma once

#include <filesystem>
#include <string>

#include "pallomir/results/measure_clusters.h"

namespace pallomir {

/// The measures as a table: comment lines ("# ...") with version, settings, units and the number of tests, a line of
/// column names, then a line for each cluster; an unknown measure is an empty field.
std::string MeasuresCsv(const MeasuredCut& cut);

/// The same with mean waveforms, fields, correlograms and the reasons for unknown measures, as JSON.
std::string MeasuresJson(const MeasuredCut& cut);

/// Writes `base`.csv and `base`.json, both or neither. Throws CommandError if that fails.
void WriteMeasures(const MeasuredCut& cut, const std::filesystem::path& base);

}  // namespace pallomir
