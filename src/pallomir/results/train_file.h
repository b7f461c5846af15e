#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "pallomir/results/usage.h"
#include "pallomir/science/trains/train.h"

namespace pallomir {

/// A spike train's autocorrelation, or its intervals, with the figures shown in its window.
struct AutocorrelationResult {
  TrainAutocorrelation Correlation;
  Usage Used;
  std::string Explanation;  ///< why the plot is empty; otherwise empty
};
struct IntervalResult {
  LogIntervals Intervals;
  Usage Used;
  std::string Explanation;
};

/// Writes a text header of kind "TrainAutoCorr", a line of column names, then a line for each bin,
/// "width,from,to,pairs": the bins of 1 ms from -50 to 50 ms, then those of 5 ms from -500 to 500 ms. All or nothing;
/// throws CommandError if it cannot be written.
void WriteAutocorrelationFile(const AutocorrelationResult& result, const std::filesystem::path& path);
AutocorrelationResult ReadAutocorrelationFile(const std::filesystem::path& path);

/// Writes a text header of kind "LogISI", which also has the counts outside the bins and below 2 ms, a line of column
/// names, then a line for each bin, "from,to,intervals".
void WriteIntervalFile(const IntervalResult& result, const std::filesystem::path& path);
IntervalResult ReadIntervalFile(const std::filesystem::path& path);

}  // namespace pallomir
