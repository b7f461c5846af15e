#include "components/spike_times.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "components/position_file.h"
#include "files/error.h"
#include "files/file_reader.h"
#include "files/number_text.h"
#include "files/platform.h"
#include "files/text_header.h"
#include "files/text_items.h"
#include "files/text_lines.h"
#include "session/work_pace.h"

namespace pallomir {

namespace {

/// Our text files begin with a header; a file without one is taken as it is.
struct Header {
  size_t Length;
  int FirstLine;  ///< the line behind it
};
Header HeaderOf(std::string_view beginning) {
  const auto length = static_cast<size_t>(std::max(TextHeaderLength(beginning), 0L));
  return {length, 1 + static_cast<int>(std::count(beginning.begin(), beginning.begin() + length, '\n'))};
}

int64_t Whole(double microseconds) {
  constexpr auto limit = static_cast<double>(kFarthestStamp);
  return static_cast<int64_t>(std::clamp(microseconds, -limit, limit));
}

int64_t StampFrom(std::string_view line, const std::string& name, int number) {
  const auto stamp = NumberFromText(line);
  if (!stamp || std::abs(*stamp) > static_cast<double>(kFarthestStamp))
    throw CommandError(name + ", line " + std::to_string(number) + ": \"" + std::string(line.substr(0, 40)) +
                       "\" is not the stamp of a spike.");
  return std::llrint(*stamp);
}

}  // namespace

TimeRange ReadTimeRange(std::string_view clusterFile) {
  const std::string text = ReadText(clusterFile, kTextHeaderLimit + kLongestLine);
  const Header header = HeaderOf(text);
  const std::string name = PathText(PlatformPath(clusterFile).filename());
  TextItems items(std::string_view(text).substr(header.Length), name, header.FirstLine);
  const double first = items.Number();
  return {Whole(std::ceil(first)), Whole(std::floor(items.Number()))};
}

SpikeTimes ReadSpikeTimes(World& world, std::string_view clusterFile, std::string_view timeFile) {
  SpikeTimes spikes;
  spikes.Range = ReadTimeRange(clusterFile);
  FileReader file(timeFile);
  WorkPace pace(world);
  const Header header = HeaderOf(ReadText(timeFile, kTextHeaderLimit));
  int number = header.FirstLine;
  uint64_t place = header.Length;
  int64_t before = INT64_MIN;
  ForEachLine(file, header.Length, [&](std::string_view line, bool) {
    place += line.size() + 1;
    if (number % 4096 == 0) pace.Reached(static_cast<double>(place) / static_cast<double>(file.Length()));
    const int here = number++;
    if (Trimmed(line).empty()) return;
    const int64_t stamp = StampFrom(line, file.Name(), here);
    spikes.Disordered += stamp < before;
    before = stamp;
    if (spikes.Range.Holds(stamp))
      spikes.Times.push_back(stamp);
    else
      ++spikes.Outside;
  });
  if (spikes.Disordered > 0) std::sort(spikes.Times.begin(), spikes.Times.end());
  return spikes;
}

}  // namespace pallomir
