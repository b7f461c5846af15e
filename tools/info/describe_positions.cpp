#include <array>
#include <cmath>
#include <optional>

#include "files/file_reader.h"
#include "files/number_text.h"
#include "files/text_header.h"
#include "files/text_lines.h"
#include "tools/figures.h"
#include "tools/info/describe_file.h"
#include "tools/info/facts.h"

namespace pallomir {

namespace {

constexpr std::string_view kPixelsPerCm = "PixelsPerCm,";
constexpr double kLargestStamp = 1e17;

using Sample = std::array<double, 4>;  // stamp, x, y, direction

std::optional<Sample> SampleFrom(std::string_view line) {
  Sample sample;
  for (size_t item = 0; item < sample.size(); ++item) {
    const size_t comma = line.find(',');
    if ((comma == std::string_view::npos) != (item == sample.size() - 1)) return {};
    const auto number = NumberFromText(line.substr(0, comma));
    if (!number) return {};
    sample[item] = *number;
    line.remove_prefix(comma == std::string_view::npos ? line.size() : comma + 1);
  }
  if (!(sample[0] >= 0 && sample[0] < kLargestStamp)) return {};
  return sample;
}

}  // namespace

std::string DescribePositions(std::string_view path) {
  FileReader file(path);
  const long header = TextHeaderLength(ReadText(path, kTextHeaderLimit));
  StampSeries stamps;
  uint64_t lost = 0;
  uint64_t undirected = 0;
  uint64_t unreadable = 0;
  std::string scale;
  ForEachLine(file, header < 0 ? 0 : static_cast<uint64_t>(header), [&](std::string_view line, bool isWhole) {
    if (isWhole && Trimmed(line).empty()) return;
    if (stamps.Count == 0 && line.starts_with(kPixelsPerCm))
      if (const auto number = NumberFromText(line.substr(kPixelsPerCm.size()))) {
        scale = DoubleText(*number);
        return;
      }
    const auto sample = isWhole ? SampleFrom(line) : std::nullopt;
    if (!sample) {
      ++unreadable;
      return;
    }
    const auto [stamp, x, y, direction] = *sample;
    stamps.Add(static_cast<uint64_t>(stamp));
    lost += x == 0 && y == 0;
    undirected += direction < 0;
  });

  Facts facts(file.Name() + ": positions of the animal");
  facts.Add("samples", CountText(stamps.Count));
  facts.Add("header", header < 0 ? "none" : std::to_string(header) + " bytes");
  if (!scale.empty()) facts.Add("scale", scale + " pixels a cm");
  facts.AddStamps(stamps, "samples");
  if (lost > 0) facts.Odd("samples that lost the animal (x = y = 0): " + CountText(lost));
  if (undirected > lost) facts.Odd("samples without direction: " + CountText(undirected));
  if (unreadable > 0) facts.Odd("lines that are no samples: " + CountText(unreadable));
  return facts.Text();
}

}  // namespace pallomir
