#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "pallomir/science/times.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// The stamps of a cluster's spikes.
struct SpikeTimes {
  TimeRange Range;             ///< spikes outside are skipped
  std::vector<int64_t> Times;  ///< microseconds, within the range, in order
  int64_t Outside = 0;         ///< spikes skipped because they are outside the range
  int64_t Unreadable = 0;      ///< spikes skipped because their stamp is implausible
  int64_t Disordered = 0;      ///< spikes earlier than their predecessor in the file; they have been sorted
};

/// A line of a text file, without its line end.
struct NumberedLine {
  const std::filesystem::path& File;
  int Number;
  std::string_view Text;

  /// Throws CommandError that names the line; `what` continues the sentence: "is not a spike".
  [[noreturn]] void Refuse(std::string_view what) const;
};

/// Calls take(line) for every line after the optional header of one of our files; skips empty lines. Throws
/// CommandError if the file cannot be read, Interrupted when the user stops it.
void ForEachNumberedLine(World& world, const std::filesystem::path& path,
                         const std::function<void(const NumberedLine&)>& take);

/// The time range in the first two lines after the header of a cluster file. Throws CommandError if they are not
/// numbers.
TimeRange ReadTimeRange(const std::filesystem::path& clusterFile);

/// The stamps of a time file, one per line after its header, that are within the time range of the cluster file. Throws
/// CommandError naming a line that is not a number.
SpikeTimes ReadSpikeTimes(World& world, const std::filesystem::path& clusterFile,
                          const std::filesystem::path& timeFile);

}  // namespace pallomir
