#include "pallomir/results/spike_times.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_lines.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"
#include "pallomir/files/text_header.h"
#include "pallomir/files/text_items.h"
#include "pallomir/session/work_pace.h"

namespace pallomir {

namespace {

int64_t Whole(double microseconds) {
  constexpr auto limit = static_cast<double>(kFarthestStamp);
  return static_cast<int64_t>(std::clamp(microseconds, -limit, limit));
}

}  // namespace

void NumberedLine::Refuse(std::string_view what) const {
  throw FaultAt(ErrorKind::Broken, File, FilePlace::AtLine(Number), Quoted(Text) + " " + std::string(what));
}

void ForEachNumberedLine(World& world, const std::filesystem::path& path,
                         const std::function<void(const NumberedLine&)>& take) {
  FileReader file(path);
  WorkPace pace(world);
  const TextBody body = BodyBehindHeader(ReadText(path, kTextHeaderLimit)).value_or(TextBody{});
  ForEachLine(file, body, [&](const TextLine& line) {
    if (line.Number % 1024 == 0) pace.Reached(static_cast<double>(line.End) / static_cast<double>(file.Length()));
    if (!Trimmed(line.Text).empty()) take({file.Path(), line.Number, line.Text});
  });
}

TimeRange ReadTimeRange(const std::filesystem::path& clusterFile) {
  const std::string text = ReadText(clusterFile, kTextHeaderLimit + kLongestLine);
  const TextBody body = BodyBehindHeader(text).value_or(TextBody{});
  TextItems items(std::string_view(text).substr(body.Begin), clusterFile, body.FirstLine);
  const double first = items.Number();
  return {Whole(std::ceil(first)), Whole(std::floor(items.Number()))};
}

SpikeTimes ReadSpikeTimes(World& world, const std::filesystem::path& clusterFile,
                          const std::filesystem::path& timeFile) {
  SpikeTimes spikes;
  spikes.Range = ReadTimeRange(clusterFile);
  int64_t before = INT64_MIN;
  ForEachNumberedLine(world, timeFile, [&](const NumberedLine& line) {
    const auto number = NumberFromText(line.Text);
    if (!number) line.Refuse("is not the timestamp of a spike");
    if (!IsStamp(*number)) {
      ++spikes.Unreadable;
      return;
    }
    const int64_t stamp = std::llrint(*number);
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
