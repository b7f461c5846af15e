#include "tools/import/spike_writer.h"

#include <algorithm>
#include <array>

#include "pallomir/files/bytes.h"
#include "pallomir/files/parameter_header.h"
#include "pallomir/recorded/waveform_file.h"
#include "tools/import/spike_features.h"

namespace pallomir {

namespace {

constexpr size_t kBlockRecords = 1024;

std::array<Waveform, 4> WaveformsOf(const unsigned char* record, int channels) {
  std::array<Waveform, 4> waveforms;
  const unsigned char* samples = record + kSpikeSamples;
  for (int s = 0; s < kWaveformSamples; ++s)
    for (int c = 0; c < channels; ++c, samples += 2) waveforms[c][s] = LoadLittleEndian<int16_t>(samples);
  return waveforms;
}

void StoreWaveforms(std::span<const Waveform> channels, unsigned char* record) {
  for (const Waveform& waveform : channels) {
    for (size_t s = 0; s < waveform.size(); ++s) StoreLittleEndian(record + 2 * s, waveform[s]);
    record += kWaveformBlockBytes;
  }
}

/// Position at a stamp, which is clamped to the type of the samples' times.
std::optional<Position> PositionAt(const SeenPositions& positions, uint64_t stamp) {
  return positions.At(static_cast<int64_t>(std::min<uint64_t>(stamp, INT64_MAX)));
}

}  // namespace

uint64_t WriteSpikes(RawFile& spikes, const RecordOrder& order, const SeenPositions& positions, OutputFile& parameters,
                     OutputFile& waveforms, ProgressBar& progress) {
  // Channels that this file does not have stay zero in every block.
  std::vector<unsigned char> raw(kBlockRecords * spikes.Layout().RecordBytes);
  std::vector<unsigned char> rows(kBlockRecords * kRowBytes);
  std::vector<unsigned char> records(kBlockRecords * kWaveformRecordBytes);
  const int channels = spikes.Layout().Channels;
  uint64_t placed = 0;
  progress.Begin("spikes", spikes.RecordCount());
  for (uint64_t first = 0; first < spikes.RecordCount(); first += kBlockRecords) {
    const size_t count = static_cast<size_t>(std::min<uint64_t>(kBlockRecords, spikes.RecordCount() - first));
    order.Read(spikes, first, count, raw.data());
    for (size_t r = 0; r < count; ++r) {
      const unsigned char* record = raw.data() + r * spikes.Layout().RecordBytes;
      const auto samples = WaveformsOf(record, channels);
      const std::span<const Waveform> recorded(samples.data(), static_cast<size_t>(channels));
      const uint64_t stamp = spikes.StampOf(record);
      const auto position = PositionAt(positions, stamp);
      placed += position.has_value();
      const auto [x, y] = position.value_or(Position{0, 0});
      StoreParameterRow(recorded, {stamp, first + r, static_cast<float>(x), static_cast<float>(y)},
                        rows.data() + r * kRowBytes);
      StoreWaveforms(recorded, records.data() + r * kWaveformRecordBytes);
    }
    parameters.Write(rows.data(), count * kRowBytes);
    waveforms.Write(records.data(), count * kWaveformRecordBytes);
    progress.Reached(first + count);
  }
  return placed;
}

}  // namespace pallomir
