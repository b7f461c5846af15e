#include <algorithm>
#include <array>
#include <vector>

#include "pallomir/files/bytes.h"
#include "pallomir/files/file_fault.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/recorded/waveform_file.h"
#include "pallomir/session/parameter_catalogue.h"
#include "tools/figures.h"
#include "tools/info/describe_file.h"
#include "tools/info/facts.h"

namespace pallomir {

namespace {

constexpr size_t kBlockBytes = size_t{1} << 20;
constexpr int kChannels = 32;

/// Calls use(record) for every complete record of `size` bytes after `header`; returns the number of bytes left over.
template <class Use>
uint64_t ForEachRecord(FileReader& file, uint64_t header, size_t size, ProgressBar& progress, Use use) {
  std::vector<unsigned char> block(kBlockBytes / size * size);
  const uint64_t end = file.Length() - (file.Length() - header) % size;
  progress.Begin("bytes", end);
  for (uint64_t offset = header; offset < end; offset += block.size()) {
    const size_t bytes = static_cast<size_t>(std::min<uint64_t>(block.size(), end - offset));
    file.Read(offset, block.data(), bytes);
    for (size_t at = 0; at < bytes; at += size) use(block.data() + at);
    progress.Reached(offset + bytes);
  }
  return file.Length() - end;
}

/// Statistics of the rows of a parameter file.
struct RowFindings {
  StampSeries Stamps;
  uint64_t OddRows = 0;  ///< with values that are not finite
  uint64_t FirstOddRow = 0;
  bool NumberedInSlot8 = true;
  std::array<bool, kChannels> Recorded{};

  void Add(const unsigned char* row) {
    const uint64_t number = Stamps.Count;
    Stamps.Add(LoadLittleEndian<uint64_t>(row));
    bool odd = false;
    for (int p = 0; p < kParameters; ++p) {
      // All exponent bits set: infinity or NaN.
      const auto bits = LoadLittleEndian<uint32_t>(row + kStampBytes + sizeof(float) * p);
      odd = odd || (bits & 0x7F800000) == 0x7F800000;
      if (p >= kEnergy && p < kEnergy + kChannels && bits != 0) Recorded[p - kEnergy] = true;
    }
    if (odd && OddRows++ == 0) FirstOddRow = number;
    const auto slot8 = LoadLittleEndian<float>(row + kStampBytes + sizeof(float) * kRecordSlot);
    NumberedInSlot8 = NumberedInSlot8 && slot8 == static_cast<float>(number);
  }
};

std::string ChannelsText(const std::array<bool, kChannels>& recorded) {
  std::string text;
  for (int c = 0; c < kChannels; ++c)
    if (recorded[c]) text += (text.empty() ? "" : ", ") + std::to_string(c + 1);
  return text.empty() ? "none with data" : text;
}

}  // namespace

std::string DescribeParameters(const std::filesystem::path& path, ProgressBar& progress) {
  FileReader file(path);
  const long header = ParameterHeaderLength(file);
  if (header < 0) throw FaultOf(ErrorKind::Foreign, file.Path(), "is not a parameter file: its rows cannot be found");
  RowFindings rows;
  const uint64_t left = ForEachRecord(file, static_cast<uint64_t>(header), kRowBytes, progress,
                                      [&](const unsigned char* row) { rows.Add(row); });

  Facts facts(file.Name() + ": spike parameters");
  facts.Add("rows", CountText(rows.Stamps.Count) + " of " + std::to_string(kRowBytes) + " bytes");
  facts.Add("header", std::to_string(header) + " bytes");
  facts.AddStamps(rows.Stamps, "spikes");
  if (rows.Stamps.Count > 0) {
    facts.Add("channels", ChannelsText(rows.Recorded));
    facts.Add("parameter 8", rows.NumberedInSlot8 ? "holds the record number" : "does not hold the record number");
  }
  if (rows.OddRows > 0)
    facts.Odd("rows with values that are not finite: " + CountText(rows.OddRows) + ", the first is row " +
              std::to_string(rows.FirstOddRow));
  if (left > 0) facts.Odd("bytes of an incomplete row at the end: " + std::to_string(left));
  return facts.Text();
}

std::string DescribeWaveforms(const std::filesystem::path& path, ProgressBar& progress) {
  FileReader file(path);
  uint64_t records = 0;
  std::array<bool, kWaveformBlocks> recorded{};
  const uint64_t left = ForEachRecord(file, 0, kWaveformRecordBytes, progress, [&](const unsigned char* record) {
    ++records;
    for (int c = 0; c < kWaveformBlocks; ++c) {
      const unsigned char* block = record + c * kWaveformBlockBytes;
      recorded[c] = recorded[c] || std::any_of(block, block + kWaveformBlockBytes, [](unsigned char b) { return b; });
    }
  });
  Facts facts(file.Name() + ": spike waveforms");
  facts.Add("records", CountText(records) + " of " + std::to_string(kWaveformRecordBytes) + " bytes");
  if (records > 0) facts.Add("channels", ChannelsText(recorded));
  if (left > 0) facts.Odd("bytes of an incomplete record at the end: " + std::to_string(left));
  return facts.Text();
}

}  // namespace pallomir
