#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pallomir {

enum class RawKind { Tetrode, SingleElectrode, Events, Video };

/// The layout of one kind of raw file of the acquisition system: an optional text header of 16384 bytes, then packed
/// little-endian records of one size, each with its stamp (u64, microseconds) at a fixed offset.
struct RawLayout {
  RawKind Kind;
  std::string_view Extension;
  std::string_view Records;  ///< name of the records in messages
  size_t RecordBytes;
  size_t StampOffset;
  int Channels;  ///< of the waveform; 0 without waveforms
};

inline constexpr RawLayout kTetrodeLayout{RawKind::Tetrode, "Ntt", "tetrode spikes", 304, 0, 4};
inline constexpr RawLayout kSingleElectrodeLayout{
    RawKind::SingleElectrode, "Nse", "single-electrode spikes", 112, 0, 1};
inline constexpr RawLayout kEventsLayout{RawKind::Events, "Nev", "events", 184, 6, 0};
inline constexpr RawLayout kVideoLayout{RawKind::Video, "Nvt", "video frames", 1828, 6, 0};
inline constexpr std::array kRawLayouts{kTetrodeLayout, kSingleElectrodeLayout, kEventsLayout, kVideoLayout};

inline constexpr size_t kRawHeaderLength = 16384;
/// A file is not taken for one of records if its first stamps reach this limit, in microseconds.
inline constexpr uint64_t kStampLimit = 100'000'000'000'000'000;
inline constexpr int kWaveformSamples = 32;

// Offsets within a spike record; sample s of channel c is the i16 at kSpikeSamples + 2 * (s * channels + c).
inline constexpr size_t kSpikeGroup = 8;      // u32
inline constexpr size_t kSpikeCell = 12;      // u32
inline constexpr size_t kSpikeFeatures = 16;  // i32 x 8
inline constexpr size_t kSpikeSamples = 48;

// Offsets within an event record.
inline constexpr size_t kEventId = 14;   // i16
inline constexpr size_t kEventTtl = 16;  // u16
inline constexpr size_t kEventText = 56;
inline constexpr size_t kEventTextBytes = 128;

// Offsets within a video frame.
inline constexpr size_t kFrameX = 1616;      // i32, pixels
inline constexpr size_t kFrameY = 1620;      // i32, pixels
inline constexpr size_t kFrameAngle = 1624;  // i32, degrees

}  // namespace pallomir
