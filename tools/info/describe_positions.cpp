#include <algorithm>
#include <cmath>

#include "pallomir/files/file_reader.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/text_header.h"
#include "pallomir/recorded/angle_header.h"
#include "pallomir/recorded/position_file.h"
#include "pallomir/recorded/position_text.h"
#include "pallomir/session/quiet_world.h"
#include "pallomir/session/work_pace.h"
#include "tools/figures.h"
#include "tools/import/angle_check.h"
#include "tools/info/describe_file.h"
#include "tools/info/facts.h"
#include "tools/progress_bar.h"

namespace pallomir {

namespace {

uint64_t Unknown(const std::vector<double>& column) {
  return static_cast<uint64_t>(std::count_if(column.begin(), column.end(), [](double v) { return std::isnan(v); }));
}

/// A world without a user interface whose work can be stopped.
class StoppableWorld : public QuietWorld {
 public:
  bool PumpEvents() override { return !IsToStop(); }
};

}  // namespace

std::string DescribePositions(const std::filesystem::path& path) {
  FileReader file(path);
  const std::string beginning = ReadText(path, kTextHeaderLimit);
  const auto body = BodyBehindHeader(beginning);
  const size_t header = body.value_or(TextBody{}).Begin;
  StoppableWorld world;
  WorkPace pace(world);
  Positions positions;
  positions.Angles = ConventionFrom(std::string_view(beginning).substr(0, header), file.Path());
  ReadPositionText(file, header, pace, positions);
  StampSeries stamps;  // negative times are clamped to 0
  for (const int64_t time : positions.Time) stamps.Add(static_cast<uint64_t>(std::max<int64_t>(time, 0)));
  RepairSamples(positions);

  Facts facts(file.Name() + ": positions of the animal");
  facts.Add("samples", CountText(stamps.Count));
  facts.Add("header", body ? std::to_string(body->Begin) + " bytes" : "none");
  if (positions.PixelsPerCm > 0) facts.Add("scale", DoubleText(positions.PixelsPerCm) + " pixels per cm");
  facts.AddStamps(stamps, "samples");
  facts.Add("angles", AnglesSentence(CheckAngles(positions)));
  const uint64_t lost = Unknown(positions.X), undirected = Unknown(positions.Direction);
  if (lost > 0) facts.Odd("samples in which the animal was lost: " + CountText(lost));
  if (undirected > lost) facts.Odd("samples without direction: " + CountText(undirected));
  if (positions.Unreadable > 0)
    facts.Odd("lines that are not samples: " + CountText(static_cast<uint64_t>(positions.Unreadable)));
  return facts.Text();
}

}  // namespace pallomir
