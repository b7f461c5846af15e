#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "pallomir/science/times.h"
#include "pallomir/session/world.h"

namespace pallomir {

/// When a cluster fired.
struct SpikeTimes {
  TimeRange Range;             ///< only what lies within counts
  std::vector<int64_t> Times;  ///< microseconds, within the range, in order
  int64_t Outside = 0;         ///< spikes left out because they are not within the range
  int64_t Unreadable = 0;      ///< spikes left out because their stamp makes no sense
  int64_t Disordered = 0;      ///< spikes earlier than the one before them in the file; they have been sorted
};

/// A line of a text file, without its line end.
struct NumberedLine {
  std::string_view File;
  int Number;
  std::string_view Text;

  /// Throws CommandError that names the line; `what` goes on from it: "is not a spike".
  [[noreturn]] void Refuse(std::string_view what) const;
};

/// Calls take(line) for every line behind the header of a file of ours, which may be absent; empty lines are passed
/// over. Throws CommandError when the file cannot be read, Interrupted when the user stops it.
void ForEachNumberedLine(World& world, std::string_view path, const std::function<void(const NumberedLine&)>& take);

/// The first two lines behind the header of a cluster file. Throws CommandError where they are not numbers.
TimeRange ReadTimeRange(std::string_view clusterFile);

/// The stamps of a time file, one a line behind its header, that lie within the range of the cluster file. Throws
/// CommandError naming the line that holds no number.
SpikeTimes ReadSpikeTimes(World& world, std::string_view clusterFile, std::string_view timeFile);

}  // namespace pallomir
