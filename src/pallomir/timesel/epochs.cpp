#include "pallomir/timesel/epochs.h"

#include <algorithm>

#include "pallomir/files/error.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/number_text.h"
#include "pallomir/files/printable.h"
#include "pallomir/files/text_lines.h"
#include "pallomir/timesel/stamp_scan.h"

namespace pallomir {

namespace {

double Number(size_t row, const char* box, const std::string& text) {
  const auto number = NumberFromText(text);
  if (!number)
    throw CommandError(ErrorKind::Refused,
                       "Epoch " + std::to_string(row) + ": the " + box + " " + Quoted(text) + " is not a number.");
  return *number;
}

std::vector<double> ReadStamps(const Session& session, World& world, const RecordGeometry& geometry) {
  FileReader file(session.File.Path);
  std::vector<double> stamps;
  ScanStamps(file, session, world, geometry, [&](int64_t, std::span<const double> block) {
    stamps.insert(stamps.end(), block.begin(), block.end());
    return false;
  });
  return stamps;
}

void FindEpoch(Session& session, size_t row, const Epoch& epoch, std::span<const double> stamps) {
  if (stamps.empty()) throw CommandError(ErrorKind::NotReady, "The parameter file holds no spikes.");
  const double start = Number(row, "start", epoch.Start);
  const auto first = std::find_if(stamps.begin(), stamps.end(), [=](double time) { return time >= start; });
  auto last = stamps.end() - 1;
  if (first != stamps.end()) {
    session.EpochStartTimestamp[row] = *first;
    session.EpochStartRecord[row] = static_cast<int32_t>(first - stamps.begin());
    // Check the end only if there is a spike that it could exclude.
    if (first != last) {
      const double end = Number(row, "end", epoch.End);
      last = std::find_if(first + 1, stamps.end(), [=](double time) { return time > end; }) - 1;
    }
  }
  session.EpochEndTimestamp[row] = *last;
  session.EpochEndRecord[row] = static_cast<int32_t>(last - stamps.begin());
}

std::string Report(const Session& session, size_t row, const std::string& label) {
  return label + ": Timestamps " + PlainDecimal(session.EpochStartTimestamp[row]) + ", " +
         PlainDecimal(session.EpochEndTimestamp[row]) + " Event IDs " + std::to_string(session.EpochStartRecord[row]) +
         ", " + std::to_string(session.EpochEndRecord[row]);
}

}  // namespace

std::string EpochItem(const Epoch& epoch) {
  return epoch.Label + ": " + epoch.Start + " " + epoch.End;
}

Epoch EpochOfItem(std::string_view item) {
  const size_t colon = item.find(':');
  if (colon == std::string_view::npos) return {std::string(item), {}, {}};
  Epoch epoch;
  epoch.Label = item.substr(0, colon);
  item.remove_prefix(colon + 1);
  epoch.Start = TakeWord(item, " ");
  epoch.End = TakeWord(item, " ");
  return epoch;
}

std::vector<std::string> ItemsOf(const EpochTable& table) {
  std::vector<std::string> items;
  for (const Epoch& epoch : table)
    if (std::string item = EpochItem(epoch); item != ":  ") items.push_back(std::move(item));
  return items;
}

EpochTable TableOf(std::span<const std::string> items) {
  if (items.size() > kEpochs)
    throw CommandError(ErrorKind::OutOfRange,
                       "There are " + std::to_string(items.size()) + " epochs, but room for only 30.");
  EpochTable table;
  std::transform(items.begin(), items.end(), table.begin(), EpochOfItem);
  return table;
}

void FindEventIDs(Session& session, World& world, const EpochTable& table) {
  const auto geometry = GeometryOf(session.File.Path);
  if (!geometry) return;
  const std::vector<double> stamps = ReadStamps(session, world, *geometry);
  for (size_t row = 0; row < kEpochs; ++row) {
    const Epoch& epoch = table[row];
    if (!epoch.Label.empty() && !epoch.Start.empty() && !epoch.End.empty()) FindEpoch(session, row, epoch, stamps);
    world.AppendMessage(Report(session, row, epoch.Label));
    if (!world.PumpEvents()) throw Interrupted();
  }
}

}  // namespace pallomir
