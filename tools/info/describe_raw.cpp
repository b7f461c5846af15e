#include <algorithm>
#include <map>

#include "pallomir/files/number_text.h"
#include "pallomir/files/raw_file.h"
#include "pallomir/files/raw_header.h"
#include "tools/figures.h"
#include "tools/import/angle_check.h"
#include "tools/import/tracking.h"
#include "tools/info/describe_file.h"
#include "tools/info/facts.h"

namespace pallomir {

namespace {

constexpr size_t kTextsListed = 20;

void AddRecords(Facts& facts, const RawFile& file) {
  const std::string size = std::to_string(file.Layout().RecordBytes);
  facts.Add("records", CountText(file.RecordCount()) + " of " + size + " bytes");
  facts.Add("header", file.Header().empty() ? "none" : std::to_string(file.Header().size()) + " bytes");
  if (!file.Header().empty() && file.Header().size() < kRawHeaderLength) facts.Odd("the file ends within its header");
  if (file.TrailingBytes() > 0)
    facts.Odd("bytes of an incomplete record at the end: " + std::to_string(file.TrailingBytes()));
}

/// Lines of the header, unchanged, if present.
void AddHeaderLines(Facts& facts, const RawFile& file) {
  for (const std::string_view key : {"AcqEntName", "SamplingFrequency", "WaveformLength", "AlignmentPt",
                                     "InputInverted", "Resolution", "DirectionOffset"})
    if (const std::string text = HeaderText(file.Header(), key); !text.empty())
      facts.Add("header", std::string(key) + " " + text.substr(0, 80));
}

/// One scale for all channels, or one for each.
void AddScale(Facts& facts, const RawFile& file) {
  std::string scales;
  for (const double volts : HeaderNumbers(file.Header(), "ADBitVolts"))
    scales += (scales.empty() ? "" : ", ") + SingleText(static_cast<float>(volts * 1e6));
  if (!scales.empty()) facts.Add("scale", scales + " microvolts per count");
}

void AddSpikes(Facts& facts, RawFile& file, ProgressBar& progress) {
  StampSeries stamps;
  std::map<uint32_t, uint64_t> cells;
  file.ForEachRecord(progress, [&](const unsigned char* record, uint64_t) {
    stamps.Add(file.StampOf(record));
    const auto cell = LoadLittleEndian<uint32_t>(record + kSpikeCell);
    if (cells.size() < kTextsListed || cells.contains(cell)) ++cells[cell];
  });
  facts.AddStamps(stamps, "spikes");
  for (const auto& [cell, count] : cells) facts.Add("cell " + std::to_string(cell), CountText(count) + " spikes");
}

/// The text of a zero-terminated field.
std::string FieldText(const unsigned char* bytes, size_t size) {
  return std::string(bytes, std::find(bytes, bytes + size, 0));
}

void AddEvents(Facts& facts, RawFile& file, ProgressBar& progress) {
  StampSeries stamps;
  std::map<std::string, uint64_t> texts;
  uint64_t others = 0;
  file.ForEachRecord(progress, [&](const unsigned char* record, uint64_t) {
    stamps.Add(file.StampOf(record));
    const std::string text = FieldText(record + kEventText, kEventTextBytes);
    if (texts.size() < kTextsListed || texts.contains(text))
      ++texts[text];
    else
      ++others;
  });
  facts.AddStamps(stamps, "events");
  for (const auto& [text, count] : texts) facts.Add("event", CountText(count) + " x \"" + text + "\"");
  if (others > 0) facts.Add("event", CountText(others) + " with other texts");
}

void AddFrames(Facts& facts, RawFile& file, ProgressBar& progress) {
  const Tracking tracking = ReadTracking(file, progress);
  facts.AddStamps(tracking.Stamps, "frames");
  if (tracking.FrameRate > 0)
    facts.Add("sampling", RoundedText(tracking.FrameRate, 2) + " frames per second by the median interval");
  facts.Add("angles", AnglesSentence(CheckAngles(tracking.Samples)));
  if (tracking.Lost > 0)
    facts.Odd("frames in which the animal was lost: " + CountText(tracking.Lost) +
              ", in runs: " + CountText(tracking.LostRuns));
  if (tracking.Gaps > 0)
    facts.Odd("gaps between frames of more than " + DurationText(kLongestBridge) + ": " + CountText(tracking.Gaps) +
              ", the longest " + DurationText(tracking.LongestGap));
  if (tracking.Samples.Unreadable > 0)
    facts.Odd("frames with impossible timestamps: " + CountText(static_cast<uint64_t>(tracking.Samples.Unreadable)));
}

}  // namespace

std::string DescribeRaw(const std::filesystem::path& path, const RawLayout& layout, ProgressBar& progress) {
  RawFile file(path, layout);
  Facts facts(file.Name() + ": " + std::string(layout.Records));
  AddRecords(facts, file);
  AddHeaderLines(facts, file);
  AddScale(facts, file);
  if (layout.Channels > 0) AddSpikes(facts, file, progress);
  if (layout.Kind == RawKind::Events) AddEvents(facts, file, progress);
  if (layout.Kind == RawKind::Video) AddFrames(facts, file, progress);
  return facts.Text();
}

}  // namespace pallomir
